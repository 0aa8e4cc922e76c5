#pragma once

#include "platform/Paper.h"

#include <memory>
#include <string>
#include <vector>

namespace kaz {

enum class Orientation { Portrait, Landscape };

// One document on the printer and the paper that the user chose.
class PrintJob : public Paper {
public:
    // Hands the pages over to the system; false when the user gave up. Throws DeviceError with a plain
    // sentence when the printer fails; what it was given of the document is taken back.
    virtual bool Print(const std::vector<PaperPage>& pages) = 0;
};

class Printer {
public:
    virtual ~Printer() = default;
    // Asks for a printer with the system's dialog, which starts with the default printer and this
    // orientation. Null when the user gave up. Throws DeviceError with a plain sentence when there is no
    // printer or it cannot be used.
    virtual std::unique_ptr<PrintJob> Ask(const std::string& documentName, Orientation orientation) = 0;
};

}  // namespace kaz
