#pragma once

#include "core/Application.h"
#include "ui/print/ListPages.h"

#include <string>
#include <vector>

namespace kaz {

// The list on paper: a box to tick before each task.
PaperList TasksOnPaper(const std::vector<std::string>& tasks, std::string note);

// Asks for the printer and prints the list; failures are told to the user.
void PrintTaskList(Application& app, const std::vector<std::string>& tasks);

}  // namespace kaz
