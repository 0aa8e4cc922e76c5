#include "forms/win32/ListContents.h"

#include "win32/Gdi.h"
#include "win32/Text.h"

#include <commctrl.h>

#include <algorithm>

namespace kaz {

ListContents::ListContents(HWND control) : control_(control), kind_(KindOf(control)) {}

LRESULT ListContents::Send(const Messages& messages, WPARAM wParam, LPARAM lParam) const {
    UINT message = 0;
    if (kind_ == ControlKind::ListBox) message = messages.list;
    if (kind_ == ControlKind::ComboBox) message = messages.combo;
    if (kind_ == ControlKind::TabStrip) message = messages.tab;
    return message ? SendMessageW(control_, message, wParam, lParam) : 0;
}

bool ListContents::IsMultiple() const {
    return kind_ == ControlKind::ListBox &&
           (GetWindowLongPtrW(control_, GWL_STYLE) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

void ListContents::SetItems(const std::vector<std::string>& items) {
    // Each line would otherwise repaint the whole list.
    SendMessageW(control_, WM_SETREDRAW, FALSE, 0);
    const int top = static_cast<int>(Send({LB_GETTOPINDEX, 0, 0}));
    Clear(items.size());
    for (const std::string& item : items)
        Append(ToWide(item));
    FitWidth(items);
    const int last = std::max(Count() - 1, 0);
    Send({LB_SETTOPINDEX, 0, 0}, static_cast<WPARAM>(std::min(top, last)));
    SendMessageW(control_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(control_, nullptr, TRUE);
}

std::vector<std::string> ListContents::Items() const {
    const int count = Count();
    std::vector<std::string> items;
    items.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int position = 0; position < count; ++position)
        items.push_back(Item(position));
    return items;
}

int ListContents::Count() const {
    return static_cast<int>(Send({LB_GETCOUNT, CB_GETCOUNT, TCM_GETITEMCOUNT}));
}

std::string ListContents::Item(int position) const {
    const WPARAM at = static_cast<WPARAM>(position);
    std::wstring text;
    if (kind_ == ControlKind::TabStrip) {
        text.resize(256);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        if (!SendMessageW(control_, TCM_GETITEMW, at, reinterpret_cast<LPARAM>(&item))) return {};
        return ToUtf8(item.pszText);
    }
    const LRESULT length = Send({LB_GETTEXTLEN, CB_GETLBTEXTLEN, 0}, at);
    if (length <= 0) return {};
    text.resize(static_cast<std::size_t>(length) + 1);
    Send({LB_GETTEXT, CB_GETLBTEXT, 0}, at, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return ToUtf8(text);
}

void ListContents::Clear(std::size_t expected) {
    Send({LB_RESETCONTENT, CB_RESETCONTENT, TCM_DELETEALLITEMS});
    constexpr std::size_t kBytesALine = 100;
    Send({LB_INITSTORAGE, CB_INITSTORAGE, 0}, expected, static_cast<LPARAM>(expected * kBytesALine));
}

void ListContents::Append(const std::wstring& text) {
    if (kind_ == ControlKind::TabStrip) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(text.c_str());
        SendMessageW(control_, TCM_INSERTITEMW, static_cast<WPARAM>(Count()),
                     reinterpret_cast<LPARAM>(&item));
        return;
    }
    // At an explicit end: a list with LBS_SORT would put its own order in the place of the caller's.
    Send({LB_INSERTSTRING, CB_INSERTSTRING, 0}, static_cast<WPARAM>(-1),
         reinterpret_cast<LPARAM>(text.c_str()));
}

void ListContents::FitWidth(const std::vector<std::string>& items) {
    if (kind_ != ControlKind::ListBox) return;
    // Adding up the widths of the characters is a hundred times faster than measuring each line.
    INT widths[256] = {};
    const ControlContext device(control_);
    GetCharWidth32A(device.Get(), 0, 255, widths);

    int widest = 0;
    for (const std::string& item : items) {
        int width = 0;
        for (const char c : item)
            width += widths[static_cast<unsigned char>(c)];
        widest = std::max(widest, width);
    }
    constexpr WPARAM kMargin = 8;
    SendMessageW(control_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest) + kMargin, 0);
}

std::vector<int> ListContents::Selection() const {
    std::vector<int> selection;
    if (IsMultiple()) {
        const LRESULT count = SendMessageW(control_, LB_GETSELCOUNT, 0, 0);
        selection.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        SendMessageW(control_, LB_GETSELITEMS, selection.size(), reinterpret_cast<LPARAM>(selection.data()));
    } else if (kind_ == ControlKind::ListBox || kind_ == ControlKind::ComboBox ||
               kind_ == ControlKind::TabStrip) {
        const LRESULT selected = Send({LB_GETCURSEL, CB_GETCURSEL, TCM_GETCURSEL});
        if (selected >= 0) selection.push_back(static_cast<int>(selected));
    }
    return selection;
}

void ListContents::Select(const std::vector<int>& positions) {
    if (!IsMultiple()) {
        const int position = positions.empty() || positions.front() >= Count() ? -1 : positions.front();
        Send({LB_SETCURSEL, CB_SETCURSEL, TCM_SETCURSEL}, static_cast<WPARAM>(position));
        return;
    }
    SendMessageW(control_, LB_SETSEL, FALSE, -1);
    for (const int position : positions)
        if (position >= 0) SendMessageW(control_, LB_SETSEL, TRUE, position);
}

}  // namespace kaz
