#pragma once

#include "forms/Window.h"

#include <vector>

namespace kaz {

// The buttons of the main window's toolbar, in their order.
std::vector<ToolButton> MainToolbar();

}  // namespace kaz
