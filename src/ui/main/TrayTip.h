#pragma once

#include "core/Application.h"

#include <string>

namespace kaz {

// What the tray icon says: first what the user has to know most, as far as there is room, then the program's
// name and how many events are due today, other users' included.
std::string TrayTip(const Application& application);
// Whether the icon carries the warning sign.
bool TrayWarns(const Application& application);

}  // namespace kaz
