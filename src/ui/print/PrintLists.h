#pragma once

#include "core/Application.h"
#include "model/MonthList.h"
#include "ui/print/ListPages.h"

#include <string>
#include <vector>

namespace kaz {

// The events of a month on paper, day by day.
PaperList MonthOnPaper(const MonthList& events, std::string note);

// Asks for the printer and prints the list; failures are told to the user.
void PrintMonthList(Application& app, const MonthGrid& grid);

// The list on paper: a box to tick before each task.
PaperList TasksOnPaper(const std::vector<std::string>& tasks, std::string note);

// Asks for the printer and prints the list; failures are told to the user.
void PrintTaskList(Application& app, const std::vector<std::string>& tasks);

}  // namespace kaz
