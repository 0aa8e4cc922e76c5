#pragma once

#include "core/Application.h"
#include "forms/Window.h"
#include "ui/main/ReminderClock.h"

namespace kaz {

// What the user can ask of the reminders, in the tray's menu and in that of the toolbar.
class ReminderMenu {
public:
    // All of them outlive the object.
    ReminderMenu(Window& window, Application& application, ReminderClock& clock)
        : window_(window),
          app_(application),
          clock_(clock) {}

    // Call before the menus are shown: a command does what its name says there, whatever has become of the
    // quiet since.
    void NameCommands();
    void ShowAgain();
    void ShowMissed();
    void ShowSleeping();
    // Begins a quiet, or ends the one that is.
    void ChangeQuiet();

private:
    Window& window_;
    Application& app_;
    ReminderClock& clock_;
    bool endsQuiet_ = false;
};

}  // namespace kaz
