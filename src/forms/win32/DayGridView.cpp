#include "forms/win32/DayGridView.h"

#include "forms/win32/ScreenPlacement.h"
#include "win32/Text.h"

#include <commctrl.h>
#include <windowsx.h>

#include <optional>
#include <utility>

namespace kaz {

namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr int kTipWidth = 360;  // in units of 1/96 inch

std::optional<DayKey> MeaningOf(WPARAM key) {
    switch (key) {
    case VK_LEFT: return DayKey::Left;
    case VK_RIGHT: return DayKey::Right;
    case VK_UP: return DayKey::Up;
    case VK_DOWN: return DayKey::Down;
    case VK_HOME: return DayKey::First;
    case VK_END: return DayKey::Last;
    default: return std::nullopt;
    }
}

TOOLINFOW ToolOf(HWND control, std::wstring& text) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text.data();
    return tool;
}

// Goes with the window that the grid is in.
HWND MakeTip(HWND control) {
    constexpr WPARAM kLongest = 32767;  // milliseconds
    const HWND tip =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                        0, 0, 0, GetParent(control), nullptr, nullptr, nullptr);
    std::wstring none;
    TOOLINFOW tool = ToolOf(control, none);
    SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip, TTM_SETDELAYTIME, TTDT_AUTOPOP, kLongest);
    return tip;
}

}  // namespace

DayGridView::DayGridView(HWND control, Raise raise) : control_(control), raise_(std::move(raise)) {
    if (control_) SetWindowSubclass(control_, Procedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

DayGridView::~DayGridView() {
    if (control_) RemoveWindowSubclass(control_, Procedure, kSubclass);
}

void DayGridView::SetDays(const DayBoxes* days) {
    cursor_.SetDays(days);
    Refresh();
}

void DayGridView::Refresh() {
    cursor_.Refresh();
    hovered_ = -1;
    if (control_) InvalidateRect(control_, nullptr, FALSE);
    TellScreenReader();
}

void DayGridView::Select(int box) {
    const int before = cursor_.Selected();
    if (!cursor_.Select(box) || box == before) return;
    RepaintBox(before);
    RepaintBox(box);
    TellScreenReader();
}

LRESULT CALLBACK DayGridView::Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                        DWORD_PTR self) {
    auto& view = *reinterpret_cast<DayGridView*>(self);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(control, Procedure, kSubclass);
        view.control_ = nullptr;
        return DefSubclassProc(control, message, wParam, lParam);
    }
    try {
        LRESULT result = 0;
        if (view.OnMessage(message, wParam, lParam, result)) return result;
    } catch (...) {
        // Short of memory while painting: the next painting may succeed.
        ValidateRect(control, nullptr);
        return 0;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}

bool DayGridView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_PAINT: Paint(); return true;
    case WM_PRINTCLIENT: {
        RECT client{};
        GetClientRect(control_, &client);
        PaintOn(reinterpret_cast<HDC>(wParam), client);
        return true;
    }
    case WM_ERASEBKGND: result = TRUE; return true;
    case WM_NCHITTEST: result = DefWindowProcW(control_, message, wParam, lParam); return true;
    // The static control would paint its text at once.
    case WM_SETTEXT: result = DefWindowProcW(control_, message, wParam, lParam); return true;
    case WM_ENABLE: return true;
    case WM_GETDLGCODE: result = WantedKeys(reinterpret_cast<const MSG*>(lParam)); return true;
    case WM_SETFONT: measured_ = false; return false;
    case WM_SIZE: InvalidateRect(control_, nullptr, FALSE); return false;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        look_.focused = message == WM_SETFOCUS;
        RepaintBox(cursor_.Selected());
        if (look_.focused) raise_(Raised::Focus, 0);
        return true;
    case WM_KEYDOWN: return OnKey(wParam);
    case WM_LBUTTONDOWN: OnClick(lParam, false); return true;
    case WM_LBUTTONDBLCLK: OnClick(lParam, true); return true;
    case WM_MOUSEMOVE: OnMouseMove(lParam); return true;
    default: return false;
    }
}

LRESULT DayGridView::WantedKeys(const MSG* message) {
    const bool isEnter = message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
    return isEnter ? DLGC_WANTARROWS | DLGC_WANTMESSAGE : DLGC_WANTARROWS;
}

void DayGridView::OnClick(LPARAM point, bool twice) {
    SetFocus(control_);
    const int box = Places().BoxAt({GET_X_LPARAM(point), GET_Y_LPARAM(point)});
    if (!cursor_.IsDay(box)) return;
    if (box != cursor_.Selected()) {
        Select(box);
        raise_(Raised::Select, box);
    }
    if (!twice) return;
    const DayLines lines(Places().Box(box), Places().RowHeight(), look_, cursor_.Days()->Box(box).lines);
    Open(box, lines.At(GET_Y_LPARAM(point)));
}

void DayGridView::Open(int box, int line) {
    openedLine_ = line;
    raise_(Raised::DoubleClick, box);
}

bool DayGridView::OnKey(WPARAM key) {
    const int before = cursor_.Selected();
    if (key == VK_RETURN && before >= 0) Open(before, kWholeDay);
    const auto meaning = MeaningOf(key);
    if (!meaning) return key == VK_RETURN;
    if (const int out = cursor_.Press(*meaning); out != 0) {
        raise_(Raised::LeadsOut, out);
    } else if (cursor_.Selected() != before) {
        RepaintBox(before);
        RepaintBox(cursor_.Selected());
        TellScreenReader();
        raise_(Raised::Select, cursor_.Selected());
    }
    return true;
}

void DayGridView::OnMouseMove(LPARAM point) {
    const int box = Places().BoxAt({GET_X_LPARAM(point), GET_Y_LPARAM(point)});
    if (box == hovered_) return;
    hovered_ = box;
    if (!tip_) tip_ = MakeTip(control_);
    std::wstring text = cursor_.IsDay(box) ? ToWide(cursor_.Days()->WholeDay(box)) : std::wstring();
    TOOLINFOW tool = ToolOf(control_, text);
    SendMessageW(tip_, TTM_POP, 0, 0);
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, ToPixels(control_, kTipWidth));
    SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

// By way of a bitmap, so that nothing flickers.
void DayGridView::Paint() {
    PAINTSTRUCT paint{};
    const HDC screen = BeginPaint(control_, &paint);
    const RECT& dirty = paint.rcPaint;
    const int width = static_cast<int>(dirty.right - dirty.left);
    const int height = static_cast<int>(dirty.bottom - dirty.top);
    const Canvas canvas(screen, width, height);
    SetViewportOrgEx(canvas.Get(), -static_cast<int>(dirty.left), -static_cast<int>(dirty.top), nullptr);
    try {
        PaintOn(canvas.Get(), dirty);
    } catch (...) {
        // What was painted until then is shown.
    }
    BitBlt(screen, dirty.left, dirty.top, width, height, canvas.Get(), dirty.left, dirty.top, SRCCOPY);
    EndPaint(control_, &paint);
}

void DayGridView::PaintOn(HDC device, const RECT& dirty) {
    if (!cursor_.Days()) return;
    Measure();
    look_.selected = cursor_.Selected();
    const DayGridPlaces places = Places();
    const HGDIOBJ before = GetCurrentObject(device, OBJ_FONT);
    DayGridPainter(device, *cursor_.Days(), places, look_).Paint(dirty);
    SelectObject(device, before);
}

// Anew for each font, which the system changes with the monitor's resolution.
void DayGridView::Measure() {
    if (measured_) return;
    measured_ = true;
    look_.font = reinterpret_cast<HFONT>(SendMessageW(control_, WM_GETFONT, 0, 0));
    LOGFONTW font{};
    GetObjectW(look_.font, sizeof font, &font);
    font.lfWeight = FW_BOLD;
    boldFont_ = Font(CreateFontIndirectW(&font));
    look_.boldFont = boldFont_.Get();
    TEXTMETRICW metrics{};
    GetTextMetricsW(ControlContext(control_).Get(), &metrics);
    look_.lineHeight = static_cast<int>(metrics.tmHeight);
    look_.gap = ToPixels(control_, 2);
    look_.frame = ToPixels(control_, 2);
}

DayGridPlaces DayGridView::Places() const {
    RECT client{};
    GetClientRect(control_, &client);
    return {{client.right, client.bottom}, look_.lineHeight + 3 * look_.gap};
}

void DayGridView::TellScreenReader() {
    if (!control_ || !cursor_.Days() || cursor_.Selected() < 0) return;
    SetWindowTextW(control_, ToWide(cursor_.Days()->WholeDay(cursor_.Selected())).c_str());
    if (look_.focused) NotifyWinEvent(EVENT_OBJECT_FOCUS, control_, OBJID_CLIENT, CHILDID_SELF);
}

void DayGridView::RepaintBox(int box) const {
    if (!control_ || box < 0) return;
    const RECT place = Places().Box(box);
    InvalidateRect(control_, &place, FALSE);
}

}  // namespace kaz
