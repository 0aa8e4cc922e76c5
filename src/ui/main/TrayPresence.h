#pragma once

#include "core/Application.h"
#include "forms/Window.h"

#include <functional>
#include <string>

namespace kaz {

// The program in the tray: an icon, with a sign of its own for whatever keeps reminders from working, and a
// tip that says first what the user has to know most, as far as there is room, then the program's name and
// how many events are due today, other users' included.
class TrayPresence {
public:
    // `clicked` brings the window forward, `menu` shows the menu.
    TrayPresence(Window& window, Application& application, std::function<void()> clicked,
                 std::function<void()> menu)
        : window_(window),
          app_(application),
          clicked_(std::move(clicked)),
          menu_(std::move(menu)) {}

    bool IsShown() const { return !tip_.empty(); }
    void Show();
    // Shows the icon anew where its tip or its sign has changed.
    void Renew();
    // To a user who closes the window for the first time: where the program is now, and how it is ended.
    void SayWhereItIs();
    // After the shell has lost it.
    void ShowAgain();
    void Hide() { window_.HideTrayIcon(); }
    void OnMouse(int mouseMessage);

private:
    Window& window_;
    Application& app_;
    std::function<void()> clicked_;
    std::function<void()> menu_;
    std::string tip_;
    int icon_ = 0;
};

}  // namespace kaz
