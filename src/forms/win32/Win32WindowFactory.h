#pragma once

#include "forms/WindowFactory.h"

#include <windows.h>

namespace kaz {

class Win32WindowFactory : public WindowFactory {
public:
    // `module` holds the templates.
    explicit Win32WindowFactory(HINSTANCE module) : module_(module) {}
    std::unique_ptr<Window> Create(int dialog) override;

private:
    HINSTANCE module_;
};

}  // namespace kaz
