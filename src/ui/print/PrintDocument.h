#pragma once

#include "core/Application.h"
#include "platform/Printer.h"

#include <functional>
#include <string>
#include <vector>

namespace kaz {

struct PrintRequest {
    std::string document;  // its name in the printer's queue
    Orientation orientation = Orientation::Portrait;
};

using LayOut = std::function<std::vector<PaperPage>(const Paper&)>;

// Asks for the printer, lets `layOut` make the pages for its paper and prints them. Whatever goes wrong is
// logged and told to the user. True when the pages are on their way.
bool PrintDocument(Application& app, const PrintRequest& request, const LayOut& layOut);

// "Printed " and today's date, as the user writes dates.
std::string PrintedToday(const Application& app);

}  // namespace kaz
