#pragma once

#include "forms/Window.h"

namespace kaz {

// Leaves of the event editor the frame for sharing and the two buttons, and makes the window fit around them.
void ShowSharingOnly(Window& window);

}  // namespace kaz
