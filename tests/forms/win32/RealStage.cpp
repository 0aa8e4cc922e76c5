#include "../Stage.h"
#include "RealWindow.h"
#include "forms/win32/StockControls.h"
#include "forms/win32/Win32WindowFactory.h"
#include "platform/win32/Win32MessagePump.h"
#include "win32/Text.h"

#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <utility>

namespace kaz {

namespace {

// Real dialogs, and a user made of the messages that a mouse and a keyboard would send.
class RealStage : public Stage, private WindowFactory {
public:
    WindowFactory& Windows() override { return *this; }
    MessagePump& Pump() override { return pump_; }
    std::vector<Window*> All(int dialog) override {
        std::vector<Window*> all;
        for (const auto& [made, handle] : made_)
            if (Window* living = made == dialog ? DialogWindow::Of(handle) : nullptr) all.push_back(living);
        return all;
    }

    void OnModal(int dialog, std::function<void(Window&)> user) override {
        stage_ = this;
        modal_ = {dialog, std::move(user)};
        // A thread's timer ticks inside the modal loop as well.
        SetTimer(nullptr, 0, 10, PlayModal);
    }

    void Click(Window& window, int id) override {
        const HWND button = ControlOf(window, id);
        // The mouse reaches neither a disabled nor a hidden control; the message would.
        const bool reachable = IsWindowEnabled(button) && (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE);
        if (!button) SendMessageW(HandleOf(window), WM_COMMAND, MAKEWPARAM(id, 1), 0);
        if (reachable) SendMessageW(button, BM_CLICK, 0, 0);
        pump_.ProcessPending();
    }
    void Type(Window& window, int control, const std::string& text) override {
        const HWND edit = ControlOf(window, control);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        if (text.empty()) SendMessageW(edit, WM_CLEAR, 0, 0);
        for (const wchar_t c : ToWide(text))
            SendMessageW(edit, WM_CHAR, c, 1);
        pump_.ProcessPending();
    }
    void ClickInto(Window& window, int control) override {
        RECT box{};
        GetClientRect(ControlOf(window, control), &box);
        const LPARAM place = MAKELPARAM(1, box.bottom / 2);
        PostMessageW(ControlOf(window, control), WM_LBUTTONDOWN, MK_LBUTTON, place);
        pump_.ProcessPending();
        PostMessageW(ControlOf(window, control), WM_MOUSEMOVE, MK_LBUTTON, place);
        PostMessageW(ControlOf(window, control), WM_LBUTTONUP, 0, place);
        pump_.ProcessPending();
    }
    void TypeAtCaret(Window& window, char letter) override {
        EXPECT_EQ(HandleOf(window), GetAncestor(GetFocus(), GA_ROOT));
        PostMessageW(GetFocus(), WM_CHAR, static_cast<WPARAM>(letter), 1);
        pump_.ProcessPending();
    }
    void Choose(Window& window, int control, int position) override {
        const HWND list = ControlOf(window, control);
        const ControlKind kind = KindOf(list);
        if (kind == ControlKind::TabStrip) {
            SendMessageW(list, TCM_SETCURFOCUS, static_cast<WPARAM>(position), 0);
        } else {
            const bool isCombo = kind == ControlKind::ComboBox;
            SendMessageW(list, isCombo ? CB_SETCURSEL : LB_SETCURSEL, static_cast<WPARAM>(position), 0);
            Notify(window, control, isCombo ? CBN_SELCHANGE : LBN_SELCHANGE);
        }
        pump_.ProcessPending();
    }
    void ClickHeader(Window& window, int list, int column) override {
        const HWND header = ListView_GetHeader(ControlOf(window, list));
        RECT place{};
        SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&place));
        const LPARAM middle = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        PostMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, middle);
        PostMessageW(header, WM_LBUTTONUP, 0, middle);
        pump_.ProcessPending();
    }
    void SelectRows(Window& window, int list, const std::vector<int>& rows) override {
        const HWND view = ControlOf(window, list);
        ListView_SetItemState(view, -1, 0, LVIS_SELECTED);
        for (const int row : rows)
            ListView_SetItemState(view, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        pump_.ProcessPending();
    }
    void Press(Window& window, int grid, DayKey key) override {
        static constexpr WPARAM kKeys[] = {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_END};
        PressKey(ControlOf(window, grid), kKeys[static_cast<int>(key)]);
    }
    void Open(Window& window, int control) override {
        if (KindOf(ControlOf(window, control)) == ControlKind::ListBox)
            Notify(window, control, LBN_DBLCLK);
        else
            PressKey(ControlOf(window, control), VK_RETURN);
    }
    void TurnWheel(Window& window, int grid, int clicks) override {
        const auto halfClick = static_cast<WORD>(clicks < 0 ? -WHEEL_DELTA / 2 : WHEEL_DELTA / 2);
        for (int half = 0; half < 2 * std::abs(clicks); ++half)
            SendMessageW(ControlOf(window, grid), WM_MOUSEWHEEL, MAKEWPARAM(0, halfClick), 0);
        pump_.ProcessPending();
    }
    void CloseBox(Window& window) override {
        SendMessageW(HandleOf(window), WM_SYSCOMMAND, SC_CLOSE, 0);
        pump_.ProcessPending();
    }
    void PressEnter(Window& window, int control) override { PressIn(window, control, VK_RETURN); }
    void PressEscape(Window& window, int control) override { PressIn(window, control, VK_ESCAPE); }
    void Tell(Window& window, Raised what) override {
        const HWND handle = HandleOf(window);
        switch (what) {
        case Raised::Resumed: SendMessageW(handle, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0); break;
        case Raised::ClockChanged: SendMessageW(handle, WM_TIMECHANGE, 0, 0); break;
        case Raised::SessionEnd: SendMessageW(handle, WM_ENDSESSION, TRUE, 0); break;
        default: SendMessageW(handle, WM_ACTIVATE, WA_ACTIVE, 0);
        }
        pump_.ProcessPending();
    }
    void Tick(Window& window, int timer) override {
        SendMessageW(HandleOf(window), WM_TIMER, static_cast<WPARAM>(timer), 0);
        pump_.ProcessPending();
    }
    void Wait(int milliseconds) override {
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds);
        for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
            pump_.ProcessPending();
        }
    }

    std::vector<std::string> Column(Window& window, int list, int column) override {
        const HWND view = ControlOf(window, list);
        std::vector<std::string> texts;
        for (int row = 0; row < ListView_GetItemCount(view); ++row) {
            wchar_t text[256]{};
            ListView_GetItemText(view, row, column, text, 256);
            texts.push_back(ToUtf8(text));
        }
        return texts;
    }
    std::string SortMark(Window& window, int list) override {
        const HWND header = ListView_GetHeader(ControlOf(window, list));
        for (int column = 0; column < Header_GetItemCount(header); ++column) {
            HDITEMW item{};
            item.mask = HDI_FORMAT;
            SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
            if (item.fmt & HDF_SORTUP) return std::to_string(column) + " up";
            if (item.fmt & HDF_SORTDOWN) return std::to_string(column) + " down";
        }
        return {};
    }

    std::string Day(Window& window, int grid) override {
        wchar_t text[1000]{};
        GetWindowTextW(ControlOf(window, grid), text, 1000);
        return ToUtf8(text);
    }
    int Focus(Window& window) override {
        EXPECT_EQ(HandleOf(window), GetAncestor(GetFocus(), GA_ROOT));
        return GetDlgCtrlID(GetFocus());
    }

private:
    static void CALLBACK PlayModal(HWND, UINT, UINT_PTR timer, DWORD) {
        Window* window = stage_->Find(stage_->modal_.first);
        if (!window || !window->IsVisible()) return;
        KillTimer(nullptr, timer);
        // He may turn to a further one inside.
        const auto user = std::move(stage_->modal_.second);
        user(*window);
    }

    std::unique_ptr<Window> Create(int dialog) override {
        std::erase_if(made_, [](const auto& made) { return !DialogWindow::Of(made.second); });
        auto window = factory_.Create(dialog);
        made_.emplace_back(dialog, HandleOf(*window));
        return window;
    }
    // By the queue, so that the dialog sees it as it sees a real key.
    void PressKey(HWND control, WPARAM key) {
        PostMessageW(control, WM_KEYDOWN, key, 1);
        pump_.ProcessPending();
    }
    void PressIn(Window& window, int control, WPARAM key) {
        SetFocus(ControlOf(window, control));
        PressKey(ControlOf(window, control), key);
    }
    static void Notify(Window& window, int control, int notification) {
        SendMessageW(HandleOf(window), WM_COMMAND, static_cast<WPARAM>(MAKELONG(control, notification)),
                     reinterpret_cast<LPARAM>(ControlOf(window, control)));
    }
    Win32WindowFactory factory_{GetModuleHandleW(nullptr)};
    Win32MessagePump pump_;
    std::vector<std::pair<int, HWND>> made_;
    std::pair<int, std::function<void(Window&)>> modal_;
    static inline RealStage* stage_ = nullptr;  // whose modal window is to come
};

}  // namespace

std::unique_ptr<Stage> Stage::Make() { return std::make_unique<RealStage>(); }

}  // namespace kaz
