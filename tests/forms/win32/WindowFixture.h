#pragma once

#include "TestResources.h"
#include "fakes/Matchers.h"
#include "forms/win32/DialogWindow.h"
#include "platform/win32/Win32MessagePump.h"

#include <functional>
#include <memory>
#include <vector>

namespace kaz {

struct RaisedEvent {
    int control;
    Raised what;
    int detail = 0;  // of a close only
    friend bool operator==(const RaisedEvent&, const RaisedEvent&) = default;
};

// One window of the test template that writes down what it raises.
class WindowFixture : public testing::Test, public WindowListener {
protected:
    WindowFixture() { window->SetListener(this); }

    void OnRaised(int control, Raised what, int detail) noexcept override {
        if (what != Raised::Resize && what != Raised::Focus && what != Raised::Leave)
            raised.push_back({control, what, what == Raised::CloseBox ? detail : 0});
        if (handler) handler(control, what);
    }
    HWND At(int control) const { return GetDlgItem(window->Handle(), control); }
    // What the host's loop would do, until nothing is left to do.
    void Settle() { Win32MessagePump().ProcessPending(); }
    void Show() {
        window->Show(Activation::TakeFocus);
        Settle();
        raised.clear();
    }
    void Key(HWND control, WPARAM key) {
        PostMessageW(control, WM_KEYDOWN, key, 1);
        PostMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        Settle();
    }
    static RECT Place(HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect;
    }

    std::unique_ptr<DialogWindow> window =
        std::make_unique<DialogWindow>(GetModuleHandleW(nullptr), IDD_TEST);
    std::vector<RaisedEvent> raised;
    std::function<void(int control, Raised what)> handler;
};

}  // namespace kaz
