#include "forms/win32/DialogLayout.h"

#include "forms/win32/ScreenPlacement.h"
#include "resources/resource.h"
#include "win32/ResourceBytes.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace kaz {

namespace {

std::span<const std::uint16_t> Words(HINSTANCE module, int id, const wchar_t* kind) {
    const auto bytes = ResourceBytes(module, MAKEINTRESOURCEW(id), kind);
    return {reinterpret_cast<const std::uint16_t*>(bytes.data()), bytes.size() / sizeof(std::uint16_t)};
}

// The client area that the template asks for. The window may have been made smaller, to fit the screen.
SIZE TemplateSize(HWND window, HINSTANCE module, int dialog) {
    // In the extended form of a template, width and height are the words 11 and 12.
    constexpr std::size_t kWidth = 11;
    const auto words = Words(module, dialog, RT_DIALOG);
    if (words.size() <= kWidth + 1) return {};
    RECT client{0, 0, words[kWidth], words[kWidth + 1]};
    MapDialogRect(window, &client);
    return {client.right, client.bottom};
}

SIZE ClientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

RECT PlaceIn(HWND window, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// A frame paints its lines only, so where they were before they stay.
bool IsFrame(HWND control) { return (GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_TRANSPARENT) != 0; }

}  // namespace

DialogLayout::DialogLayout(HWND window, HINSTANCE module, int dialog)
    : window_(window),
      madeDpi_(static_cast<int>(GetDpiForWindow(window))),
      madeClient_(TemplateSize(window, module, dialog)) {
    const auto table = Words(module, dialog, RT_RCDATA);
    if (table.size() < 2) return;
    RECT least{0, 0, table[0], table[1]};
    MapDialogRect(window, &least);
    minimum_ = {least.right ? least.right : madeClient_.cx, least.bottom ? least.bottom : madeClient_.cy};
    for (std::size_t at = 2; at + 1 < table.size(); at += 2)
        if (const HWND control = GetDlgItem(window, table[at]))
            items_.push_back({control, table[at + 1], PlaceIn(window, control)});
    MakeHeadings();
    Apply();
}

int DialogLayout::Scaled(LONG pixels) const {
    return MulDiv(pixels, static_cast<int>(GetDpiForWindow(window_)), madeDpi_);
}

RECT DialogLayout::PlaceNow(const Item& item, SIZE client) const {
    const auto along = [this, &item](unsigned startFlag, unsigned endFlag, LONG from, LONG to, LONG made,
                                     LONG now) {
        const int fromEnd = Scaled(made - to);
        const int length = Scaled(to - from);
        const LONG end = item.flags & endFlag ? now - fromEnd : Scaled(from) + length;
        const LONG start = item.flags & startFlag || !(item.flags & endFlag) ? Scaled(from) : end - length;
        return std::pair{start, end};
    };
    const auto [left, right] =
        along(LAYOUT_LEFT, LAYOUT_RIGHT, item.place.left, item.place.right, madeClient_.cx, client.cx);
    const auto [top, bottom] =
        along(LAYOUT_TOP, LAYOUT_BOTTOM, item.place.top, item.place.bottom, madeClient_.cy, client.cy);
    return {left, top + ToPixels(window_, item.above), right, bottom};
}

void DialogLayout::SetRoomAbove(HWND control, int height) {
    for (Item& item : items_)
        if (item.control == control) item.above = height;
    Apply();
}

void DialogLayout::Apply() const {
    if (items_.empty() || IsIconic(window_)) return;
    const SIZE client = ClientSize(window_);
    HDWP moves = BeginDeferWindowPos(static_cast<int>(items_.size()));
    for (const Item& item : items_) {
        const RECT place = PlaceNow(item, client);
        const RECT now = PlaceIn(window_, item.control);
        if (!moves || EqualRect(&place, &now)) continue;
        const bool isFrame = IsFrame(item.control);
        const UINT bits = isFrame ? SWP_NOCOPYBITS : 0U;
        moves = DeferWindowPos(moves, item.control, nullptr, place.left, place.top, place.right - place.left,
                               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | bits);
        if (isFrame) InvalidateRect(window_, &now, TRUE);
    }
    if (moves) EndDeferWindowPos(moves);
    for (const Item& item : items_)
        if (IsFrame(item.control)) InvalidateRect(item.control, nullptr, FALSE);
}

void DialogLayout::MakeHeadings() {
    // The font of the other controls, which the system has rescaled when the resolution changed.
    const auto isPlain = [](const Item& item) { return (item.flags & LAYOUT_HEADING) == 0; };
    const auto plain = std::find_if(items_.begin(), items_.end(), isPlain);
    const HWND model = plain == items_.end() ? window_ : plain->control;
    LOGFONTW font{};
    const auto modelFont = reinterpret_cast<HFONT>(SendMessageW(model, WM_GETFONT, 0, 0));
    if (!modelFont || !GetObjectW(modelFont, sizeof font, &font)) return;
    font.lfHeight = font.lfHeight * 2;
    font.lfWeight = FW_BOLD;
    Font heading(CreateFontIndirectW(&font));
    for (const Item& item : items_)
        if (item.flags & LAYOUT_HEADING)
            SendMessageW(item.control, WM_SETFONT, reinterpret_cast<WPARAM>(heading.Get()), TRUE);
    heading_ = std::move(heading);
}

SIZE DialogLayout::Minimum() const {
    RECT frame{0, 0, Scaled(minimum_.cx), Scaled(minimum_.cy)};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)),
                             GetDpiForWindow(window_));
    return {frame.right - frame.left, frame.bottom - frame.top};
}

}  // namespace kaz
