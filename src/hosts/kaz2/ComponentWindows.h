#pragma once

namespace kaz {

// Whether the component still has a window on this thread, be it hidden. Its main window is there from the
// first scan until the component is shut down or the user quits in its tray menu, of which no event tells.
bool ComponentHasWindows();

// Whether a dialog of the component waits for its user, so that the window behind it takes no input. A
// reminder keeps nobody from anything and is no such dialog.
bool ComponentAsks();

}  // namespace kaz
