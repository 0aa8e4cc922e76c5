#pragma once

#include "platform/Printer.h"

#include <windows.h>

namespace kaz {

class Win32Printer : public Printer {
public:
    // `module` says how the dialog looks.
    explicit Win32Printer(HINSTANCE module) : module_(module) {}
    std::unique_ptr<PrintJob> Ask(const std::string& documentName, Orientation orientation) override;

private:
    HINSTANCE module_;
};

}  // namespace kaz
