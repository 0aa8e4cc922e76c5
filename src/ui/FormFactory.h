#pragma once

#include "core/MainWindow.h"

#include <memory>

namespace kaz {

// Makes the main window, hidden and loaded; its first tick comes as soon as messages are processed. It counts
// among the application's open windows. Throws InternalError when the window cannot be made.
std::shared_ptr<MainWindow> MakeMainWindow(Application& application, MainWindowEvents& owner);

}  // namespace kaz
