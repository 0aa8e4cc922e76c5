#include "forms/win32/HighContrast.h"
#include "forms/win32/ReportListView.h"
#include "forms/win32/ScreenPlacement.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kEmptyMargin = 16;  // in units of 1/96 inch

}  // namespace

std::optional<LRESULT> ReportListView::OnNotify(const NMHDR& header) {
    // The list view's notifications are larger structures that begin with the header.
    auto* whole = const_cast<NMHDR*>(&header);
    switch (header.code) {
    case LVN_GETDISPINFOW: GiveText(reinterpret_cast<NMLVDISPINFOW*>(whole)->item); return 0;
    case NM_CUSTOMDRAW: return Draw(*reinterpret_cast<NMLVCUSTOMDRAW*>(whole));
    case LVN_COLUMNCLICK:
        raise_(Raised::ColumnClick, reinterpret_cast<NMLISTVIEW*>(whole)->iSubItem);
        return 0;
    case LVN_ITEMCHANGED: {
        const auto& change = *reinterpret_cast<NMLISTVIEW*>(whole);
        if (!quiet_ && ((change.uOldState ^ change.uNewState) & LVIS_SELECTED)) raise_(Raised::Select, 0);
        return 0;
    }
    case LVN_ODSTATECHANGED:
        if (!quiet_) raise_(Raised::Select, 0);
        return 0;
    case NM_DBLCLK:
        if (IsRow(reinterpret_cast<NMITEMACTIVATE*>(whole)->iItem)) raise_(Raised::DoubleClick, 0);
        return 0;
    case NM_RETURN:
        if (IsRow(Current())) raise_(Raised::DoubleClick, 0);
        return 0;
    case NM_SETFOCUS: raise_(Raised::Focus, 0); return 0;
    default: return std::nullopt;
    }
}

void ReportListView::GiveText(LVITEMW& item) const {
    if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0) return;
    std::wstring text;
    // The control may ask for rows of the count before the change; the owner of the rows need not know them.
    if (IsRow(item.iItem) && item.iItem < rows_->RowCount())
        text = ToWide(rows_->CellText(item.iItem, item.iSubItem));
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    text.copy(item.pszText, length);
    item.pszText[length] = L'\0';
}

bool ReportListView::HasColours(int row) const {
    if (!IsRow(row) || row >= rows_->RowCount()) return false;
    for (int column = 0; column < columnCount_; ++column)
        if (!rows_->CellColour(row, column).windowText) return true;
    return false;
}

void ReportListView::DrawEmptyText(HDC target) const {
    RECT header{};
    RECT room{};
    GetWindowRect(ListView_GetHeader(list_), &header);
    GetClientRect(list_, &room);
    const int margin = ToPixels(list_, kEmptyMargin);
    room = {room.left + margin, room.top + header.bottom - header.top + margin, room.right - margin,
            room.bottom};
    const HGDIOBJ before =
        SelectObject(target, reinterpret_cast<HFONT>(SendMessageW(list_, WM_GETFONT, 0, 0)));
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(target, emptyText_.c_str(), -1, &room, DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(target, before);
}

LRESULT ReportListView::Draw(NMLVCUSTOMDRAW& draw) const {
    if (SaysEmpty()) {
        if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYPOSTPAINT;
        if (draw.nmcd.dwDrawStage == CDDS_POSTPAINT) DrawEmptyText(draw.nmcd.hdc);
        return CDRF_DODEFAULT;
    }
    switch (draw.nmcd.dwDrawStage) {
    // The user's own colours are the only ones that can be told apart then; the texts say the same.
    case CDDS_PREPAINT: return IsHighContrast() ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
    // Asked cell by cell only where it is needed: nine messages a row are a good part of a page.
    case CDDS_ITEMPREPAINT:
        return HasColours(static_cast<int>(draw.nmcd.dwItemSpec)) ? CDRF_NOTIFYSUBITEMDRAW : CDRF_DODEFAULT;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM: {
        const int row = static_cast<int>(draw.nmcd.dwItemSpec);
        if (!IsRow(row) || row >= rows_->RowCount()) return CDRF_DODEFAULT;
        const Colour colour = rows_->CellColour(row, draw.iSubItem);
        draw.clrText =
            colour.windowText ? GetSysColor(COLOR_WINDOWTEXT) : RGB(colour.red, colour.green, colour.blue);
        return CDRF_DODEFAULT;
    }
    default: return CDRF_DODEFAULT;
    }
}

}  // namespace kaz
