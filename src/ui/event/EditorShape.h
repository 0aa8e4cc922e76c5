#pragma once

#include "forms/Window.h"

#include <string>

namespace kaz {

// The smaller shapes of the event editor.

// Leaves the frame for sharing and the two buttons, and makes the window fit around them.
void ShowSharingOnly(Window& window);
// Takes the frame for sharing away from who shares with nobody, and its room with it.
void HideSharing(Window& window);

// All that a user enters in it as one text, to be compared with that of another moment. Which tab is chosen,
// and with it whether the event repeats, does not count: who looks at the tabs has entered nothing. Throws
// InvalidCall for a character that the code page cannot hold.
std::string EnteredIn(const Window& window);

}  // namespace kaz
