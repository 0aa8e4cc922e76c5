#pragma once

#include "hosts/kaz2/LineToProgram.h"

#include <windows.h>

#include <functional>
#include <string>

namespace kaz {

// A window that nobody sees, for what the system and a second start have to tell: only top-level windows are
// asked about the end of a session, and only windows can be found by other programs.
class HostWindow {
public:
    struct Actions {
        std::function<void()> comeForward;
        std::function<void()> end;  // asked to close, which may be refused
        LineToProgram::Add add;     // an event in words
        // The last chance to save: the process may be ended when this returns.
        std::function<void()> sessionEnd;
    };

    HostWindow(const wchar_t* className, const std::wstring& name, UINT comeForwardMessage, Actions actions);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Handle() const { return window_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    bool On(UINT message, WPARAM first, LPARAM second);

    UINT comeForwardMessage_;
    Actions actions_;
    HWND window_ = nullptr;
};

}  // namespace kaz
