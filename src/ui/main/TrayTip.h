#pragma once

#include "core/Application.h"

#include <string>

namespace kaz {

// What the tray icon says: the program's name and how many events are due today, other users' included.
std::string TrayTip(const Application& application);

}  // namespace kaz
