#include "forms/win32/NoticeView.h"

#include "forms/win32/HighContrast.h"
#include "forms/win32/ScreenPlacement.h"
#include "forms/win32/Tooltips.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kSign = 16;  // in units of 1/96 inch
constexpr int kMargin = 6;
constexpr UINT kFormat = DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS;

struct Colours {
    COLORREF back;
    COLORREF edge;
    COLORREF text;
};

Colours ColoursOf(Tone tone) {
    if (IsHighContrast())
        return {GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOWTEXT)};
    switch (tone) {
    case Tone::Alarm: return {RGB(253, 231, 233), RGB(200, 48, 47), RGB(0, 0, 0)};
    case Tone::Warning: return {RGB(255, 244, 206), RGB(214, 158, 0), RGB(0, 0, 0)};
    case Tone::Note: break;
    }
    return {RGB(232, 241, 250), RGB(47, 111, 181), RGB(0, 0, 0)};
}

}  // namespace

void NoticeView::Show(const std::wstring& text, Tone tone) {
    text_ = text;
    tone_ = tone;
    if (!sign_) OnDpiChanged();
    SetWindowTextW(control_, text_.c_str());
    SetTooltip(tooltip_, window_, module_, control_, text_);
    InvalidateRect(control_, nullptr, TRUE);
    // A screen reader tells nothing by itself of a text without the keyboard.
    NotifyWinEvent(EVENT_SYSTEM_ALERT, control_, OBJID_CLIENT, CHILDID_SELF);
}

void NoticeView::OnDpiChanged() {
    const int size = ToPixels(window_, kSign);
    sign_ = Icon(static_cast<HICON>(LoadImageW(module_, L"warning", IMAGE_ICON, size, size, 0)));
    InvalidateRect(control_, nullptr, TRUE);
}

int NoticeView::Margin() const { return ToPixels(window_, kMargin); }

int NoticeView::Before() const { return Margin() + (HasSign() ? ToPixels(window_, kSign) + Margin() : 0); }

int NoticeView::IdealWidth() const {
    const ControlContext device(control_);
    RECT place{};
    DrawTextW(device.Get(), text_.c_str(), -1, &place, DT_NOPREFIX | DT_CALCRECT);
    return Before() + place.right + 2 * Margin();
}

void NoticeView::Paint(const DRAWITEMSTRUCT& item) const {
    const Colours colours = ColoursOf(tone_);
    const HDC device = item.hDC;
    RECT place = item.rcItem;
    const Brush edge(CreateSolidBrush(colours.edge));
    const Brush back(CreateSolidBrush(colours.back));
    FillRect(device, &place, edge.Get());
    InflateRect(&place, -1, -1);
    FillRect(device, &place, back.Get());

    const int height = item.rcItem.bottom - item.rcItem.top;
    const int size = ToPixels(window_, kSign);
    if (HasSign() && sign_)
        DrawIconEx(device, Margin(), (height - size) / 2, sign_.Get(), size, size, 0, nullptr, DI_NORMAL);

    const HGDIOBJ before =
        SelectObject(device, reinterpret_cast<HFONT>(SendMessageW(control_, WM_GETFONT, 0, 0)));
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, colours.text);
    TEXTMETRICW font{};
    GetTextMetricsW(device, &font);
    RECT text{Before(), 0, item.rcItem.right - Margin(), 0};
    RECT needed = text;
    DrawTextW(device, text_.c_str(), -1, &needed, kFormat | DT_CALCRECT);
    const LONG lines = std::max<LONG>(1, (height - 2) / font.tmHeight);
    const LONG used = std::min<LONG>(needed.bottom, lines * font.tmHeight);
    text.top = (height - used) / 2;
    text.bottom = text.top + used;
    DrawTextW(device, text_.c_str(), -1, &text, kFormat);
    SelectObject(device, before);
}

}  // namespace kaz
