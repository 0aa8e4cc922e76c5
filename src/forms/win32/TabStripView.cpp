#include "forms/win32/TabStripView.h"

#include "resources/resource.h"

#include <commctrl.h>

#include <iterator>

namespace kaz {

namespace {

bool Holds(const RECT& outer, const RECT& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

}  // namespace

HBRUSH TabStripView::BackgroundOf(HWND control, HDC device) {
    RECT strip{};
    RECT place{};
    GetWindowRect(strip_, &strip);
    GetWindowRect(control, &place);
    if (!IsWindowVisible(strip_) || !Holds(strip, place)) return nullptr;
    const SIZE size{strip.right - strip.left, strip.bottom - strip.top};
    if (!brush_ || size.cx != size_.cx || size.cy != size_.cy) MakeBrush(size);
    SetBkMode(device, TRANSPARENT);
    SetBrushOrgEx(device, strip.left - place.left, strip.top - place.top, nullptr);
    return brush_.Get();
}

// The theme knows no colour for the body, so the strip is asked to paint itself.
void TabStripView::MakeBrush(SIZE size) {
    const Canvas canvas(WindowContext(strip_).Get(), size.cx, size.cy);
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(canvas.Get(), &all, GetSysColorBrush(COLOR_3DFACE));
    SendMessageW(strip_, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.Get()), PRF_ERASEBKGND | PRF_CLIENT);
    brush_ = Brush(CreatePatternBrush(canvas.Picture()));
    size_ = size;
}

bool TabStripView::OnNotify(const NMHDR& header) const {
    if (header.code != TTN_GETDISPINFOW) return false;
    if (reinterpret_cast<HWND>(SendMessageW(strip_, TCM_GETTOOLTIPS, 0, 0)) != header.hwndFrom) return false;
    auto& wanted = *reinterpret_cast<NMTTDISPINFOW*>(const_cast<NMHDR*>(&header));
    const UINT text =
        static_cast<UINT>(IDS_TOOLTIP + GetDlgCtrlID(strip_) + 1) + static_cast<UINT>(header.idFrom);
    wanted.szText[0] = L'\0';
    LoadStringW(module_, text, wanted.szText, static_cast<int>(std::size(wanted.szText)));
    wanted.lpszText = wanted.szText;
    return true;
}

}  // namespace kaz
