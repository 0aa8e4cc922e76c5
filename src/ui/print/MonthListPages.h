#pragma once

#include "core/Application.h"
#include "model/MonthList.h"
#include "ui/print/ListPages.h"

#include <string>

namespace kaz {

// The events of a month on paper, day by day.
PaperList MonthOnPaper(const MonthList& events, std::string note);

// Asks for the printer and prints the list; failures are told to the user.
void PrintMonthList(Application& app, const MonthGrid& grid);

}  // namespace kaz
