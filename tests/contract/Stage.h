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
    // The newest living window of a template, null when there is none.
    virtual Window* Find(int dialog) = 0;

    // What the user does in the next modal window of a template; it has to be closed then.
    virtual void OnModal(int dialog, std::function<void(Window&)> user) = 0;
    // What the user does. Buttons and check boxes are clicked, disabled and hidden ones in vain.
    virtual void Click(Window& window, int control) = 0;
    virtual void Type(Window& window, int control, const std::string& text) = 0;
    // Of a combo box or a tab strip.
    virtual void Choose(Window& window, int control, int position) = 0;
    virtual void Command(Window& window, int command) = 0;
    virtual void ClickHeader(Window& window, int list, int column) = 0;
    virtual void SelectRows(Window& window, int list, const std::vector<int>& rows) = 0;
    // In a grid of days that has the keyboard; the wheel turns away from the user by so many clicks.
    virtual void Press(Window& window, int grid, DayKey key) = 0;
    virtual void PressEnter(Window& window, int grid) = 0;
    virtual void TurnWheel(Window& window, int grid, int clicks) = 0;
    virtual void CloseBox(Window& window) = 0;
    // Lets the time pass, and with it the timers tick.
    virtual void Wait(int milliseconds) = 0;

    // What the user sees of a report list.
    virtual std::vector<std::string> Column(Window& window, int list, int column) = 0;
    virtual std::string SortMark(Window& window, int list) = 0;  // such as "4 down", "" when there is none
};

}  // namespace kaz
