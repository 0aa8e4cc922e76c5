#pragma once

#include "base/LocaleData.h"
#include "core/Application.h"
#include "model/MonthGrid.h"
#include "platform/Paper.h"

#include <string>
#include <vector>

namespace kaz {

// A month to hang on the wall: one page with a box for each day.
struct PaperCalendar {
    std::string title;
    std::string note;  // beside the title
    const MonthGrid& grid;
    const LocaleData& locale;
};

// A day that has more events than its box has room for ends with a line such as "+3 more". Throws DeviceError
// when the paper is too small.
std::vector<PaperPage> LayOutCalendar(const PaperCalendar& calendar, const Paper& paper);

// Asks for the printer and prints the month in landscape; failures are told to the user.
void PrintCalendar(Application& app, const MonthGrid& grid);

}  // namespace kaz
