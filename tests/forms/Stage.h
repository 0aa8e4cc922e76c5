#pragma once

#include "forms/DayGrid.h"
#include "forms/WindowFactory.h"
#include "platform/MessagePump.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kaz {

// The program's windows and a user in front of them. There are two stages, the fake windows and the real
// dialogs of Windows, and the scenarios run on both: so the fake cannot drift away from what it stands for.
class Stage {
public:
    // The stage of this build.
    static std::unique_ptr<Stage> Make();

    virtual ~Stage() = default;
    virtual WindowFactory& Windows() = 0;
    virtual MessagePump& Pump() = 0;
    // The living windows of a template, in the order of their making.
    virtual std::vector<Window*> All(int dialog) = 0;
    // The newest of them, null when there is none.
    Window* Find(int dialog) {
        const auto all = All(dialog);
        return all.empty() ? nullptr : all.back();
    }

    // What the user does in the next modal window of a template; it has to be closed then.
    virtual void OnModal(int dialog, std::function<void(Window&)> user) = 0;
    // What the user does. Buttons and check boxes are clicked, disabled and hidden ones in vain; what is no
    // control of the window is a command of its menus, its toolbar and its keys.
    virtual void Click(Window& window, int id) = 0;
    virtual void Type(Window& window, int control, const std::string& text) = 0;
    // Clicks into a text box, before its text.
    virtual void ClickInto(Window& window, int control) = 0;
    // Types at the caret, or over what is selected.
    virtual void TypeAtCaret(Window& window, char letter) = 0;
    // Of a combo box, a list box or a tab strip.
    virtual void Choose(Window& window, int control, int position) = 0;
    virtual void ClickHeader(Window& window, int list, int column) = 0;
    // The last of the rows becomes the current one.
    virtual void SelectRows(Window& window, int list, const std::vector<int>& rows) = 0;
    // In a list or a grid of days: opens what is selected, by the key or with the mouse.
    virtual void Open(Window& window, int control) = 0;
    // In a grid of days that has the keyboard, or up and down in a number box; the wheel turns away from the
    // user by so many clicks.
    virtual void Press(Window& window, int grid, DayKey key) = 0;
    virtual void TurnWheel(Window& window, int grid, int clicks) = 0;
    virtual void CloseBox(Window& window) = 0;
    // In a text box, which gets the keyboard first.
    virtual void PressEnter(Window& window, int control) = 0;
    virtual void PressEscape(Window& window, int control) = 0;
    // The system tells every window of itself: Resumed, ClockChanged, SessionEnd, Activated.
    virtual void Tell(Window& window, Raised what) = 0;
    // The time of a timer that runs has come.
    virtual void Tick(Window& window, int timer) = 0;
    // Lets the time pass, and with it the timers tick.
    virtual void Wait(int milliseconds) = 0;

    // What the user sees of a report list, and of the selected day of a grid.
    virtual std::vector<std::string> Column(Window& window, int list, int column) = 0;
    virtual std::string SortMark(Window& window, int list) = 0;  // such as "4 down", "" when there is none
    virtual std::string Day(Window& window, int grid) = 0;
    // The control that has the keyboard.
    virtual int Focus(Window& window) = 0;
};

}  // namespace kaz
