#include "forms/win32/ReportListView.h"

#include "forms/win32/ScreenPlacement.h"
#include "win32/Text.h"

#include <algorithm>
#include <utility>

namespace kaz {

ReportListView::ReportListView(HWND list, Raise raise)
    : list_(list),
      raise_(std::move(raise)),
      dpi_(static_cast<int>(GetDpiForWindow(list))) {
    if (!list_) return;
    constexpr DWORD kStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    ListView_SetExtendedListViewStyleEx(list_, kStyle, kStyle);
}

void ReportListView::SetColumns(const std::vector<ReportColumn>& columns) {
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    while (ListView_DeleteColumn(list_, 0)) {
    }
    growing_ = -1;
    for (std::size_t at = 0; at < columns.size(); ++at) {
        std::wstring header = ToWide(columns[at].header);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = header.data();
        column.cx = ToPixels(list_, columns[at].width);
        column.iSubItem = static_cast<int>(at);
        SendMessageW(list_, LVM_INSERTCOLUMNW, at, reinterpret_cast<LPARAM>(&column));
        if (!columns[at].growing) continue;
        growing_ = column.iSubItem;
        leastWidth_ = fittedWidth_ = column.cx;
    }
    columnCount_ = static_cast<int>(columns.size());
    FitColumns();
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

std::vector<ColumnPlace> ReportListView::Columns() const {
    std::vector<int> order(static_cast<std::size_t>(columnCount_));
    if (!list_ || !ListView_GetColumnOrderArray(list_, columnCount_, order.data())) return {};
    std::vector<ColumnPlace> places;
    for (const int column : order) {
        const int width = ListView_GetColumnWidth(list_, column);
        const auto hidden = hidden_.find(column);
        const bool isFitted = column == growing_ && width == fittedWidth_;
        // One that the user has pulled open again is not hidden any more.
        if (width == 0 && hidden != hidden_.end())
            places.push_back({column, hidden->second, false});
        else
            places.push_back({column, isFitted ? 0 : ToUnits(list_, width), width > 0});
    }
    return places;
}

void ReportListView::PlaceColumns(const std::vector<ColumnPlace>& places) {
    if (!list_ || std::cmp_not_equal(places.size(), columnCount_)) return;
    ListView_SetExtendedListViewStyleEx(list_, LVS_EX_HEADERDRAGDROP, LVS_EX_HEADERDRAGDROP);
    std::vector<int> order;
    hidden_.clear();
    for (const ColumnPlace& place : places) {
        order.push_back(place.column);
        const bool isGrowing = place.column == growing_ && place.width == 0;
        if (isGrowing) fittedWidth_ = leastWidth_;
        if (!place.shown) hidden_[place.column] = place.width;
        const int width = isGrowing ? leastWidth_ : ToPixels(list_, place.width);
        ListView_SetColumnWidth(list_, place.column, place.shown ? width : 0);
    }
    ListView_SetColumnOrderArray(list_, columnCount_, order.data());
    FitColumns();
    InvalidateRect(list_, nullptr, TRUE);
}

void ReportListView::FitColumns() {
    // The text is wrapped at another width.
    if (SaysEmpty()) InvalidateRect(list_, nullptr, TRUE);
    // A width that the user has given it by hand stays.
    if (growing_ < 0 || ListView_GetColumnWidth(list_, growing_) != fittedWidth_) return;
    RECT client{};
    GetClientRect(list_, &client);
    int rest = client.right;
    for (int column = 0; column < columnCount_; ++column)
        if (column != growing_) rest -= ListView_GetColumnWidth(list_, column);
    rest = std::max(rest, leastWidth_);
    if (rest == fittedWidth_) return;
    fittedWidth_ = rest;
    ListView_SetColumnWidth(list_, growing_, rest);
}

void ReportListView::SetRows(const ReportRows* rows) {
    rows_ = rows;
    Refresh();
}

void ReportListView::Refresh() {
    const int before = std::exchange(shown_, rows_ ? rows_->RowCount() : 0);
    if (shown_ != before) {  // otherwise the scroll bars would be painted anew for nothing
        quiet_ = true;
        // A list that shrinks has to scroll back, or it would show the emptiness behind its end.
        const DWORD scroll = shown_ < before ? 0 : LVSICF_NOSCROLL;
        SendMessageW(list_, LVM_SETITEMCOUNT, static_cast<WPARAM>(shown_),
                     static_cast<LPARAM>(LVSICF_NOINVALIDATEALL | scroll));
        quiet_ = false;
        FitColumns();  // a scroll bar has come or gone
    }
    const bool textGoes = before == 0 && shown_ > 0 && !emptyText_.empty();
    InvalidateRect(list_, nullptr, textGoes ? TRUE : FALSE);
}

std::vector<int> ReportListView::Selection() const {
    // By the count, since a look for one more row than there are goes through the whole list.
    const auto count = static_cast<std::size_t>(ListView_GetSelectedCount(list_));
    std::vector<int> rows;
    rows.reserve(count);
    for (int row = -1; rows.size() < count && (row = ListView_GetNextItem(list_, row, LVNI_SELECTED)) >= 0;)
        rows.push_back(row);
    return rows;
}

std::vector<std::string> ReportListView::Texts() const {
    std::vector<std::string> texts;
    for (int row = 0; rows_ && row < std::min(shown_, rows_->RowCount()); ++row)
        texts.emplace_back(rows_->CellText(row, 0));
    return texts;
}

int ReportListView::Current() const { return list_ ? ListView_GetNextItem(list_, -1, LVNI_FOCUSED) : -1; }

void ReportListView::SetState(int row, UINT state, UINT mask) {
    quiet_ = true;
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    quiet_ = false;
}

void ReportListView::ClearSelection() {
    constexpr UINT kFew = 100;
    // "All rows" is a walk over each of them in some versions of the control.
    if (ListView_GetSelectedCount(list_) > kFew)
        SetState(-1, 0, LVIS_SELECTED);
    else
        for (const int row : Selection())
            SetState(row, 0, LVIS_SELECTED);
}

void ReportListView::Select(int row) {
    if (!IsRow(row)) return;
    SetState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    // A range selection by the keyboard starts where the program has put the user.
    SendMessageW(list_, LVM_SETSELECTIONMARK, 0, row);
    SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void ReportListView::SetSelection(const std::vector<int>& rows) {
    if (std::cmp_equal(rows.size(), shown_)) {
        SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
        return;
    }
    ClearSelection();
    for (const int row : rows)
        if (IsRow(row)) SetState(row, LVIS_SELECTED, LVIS_SELECTED);
}

void ReportListView::ShowSortMark(int column, bool ascending) {
    const HWND header = ListView_GetHeader(list_);
    const int count = Header_GetItemCount(header);
    for (int at = 0; at < count; ++at) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&item));
        const int before = item.fmt;
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (at == column) item.fmt |= ascending ? HDF_SORTUP : HDF_SORTDOWN;
        if (item.fmt == before) continue;
        SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&item));
    }
}

void ReportListView::SetEmptyText(const std::string& text) {
    std::wstring wide = ToWide(text);
    if (wide == emptyText_) return;
    emptyText_ = std::move(wide);
    if (shown_ == 0) InvalidateRect(list_, nullptr, TRUE);
}

void ReportListView::OnDpiChanged() {
    const int now = static_cast<int>(GetDpiForWindow(list_));
    if (!list_ || now == dpi_) return;
    const auto scaled = [&](int pixels) { return MulDiv(pixels, now, dpi_); };
    for (int at = 0; at < columnCount_; ++at)
        ListView_SetColumnWidth(list_, at, scaled(ListView_GetColumnWidth(list_, at)));
    leastWidth_ = scaled(leastWidth_);
    fittedWidth_ = scaled(fittedWidth_);
    dpi_ = now;
    FitColumns();
}

POINT ReportListView::MenuPoint() const {
    RECT place{};
    if (!ListView_GetItemRect(list_, Current(), &place, LVIR_LABEL)) GetClientRect(list_, &place);
    RECT client{};
    GetClientRect(list_, &client);
    POINT point{place.left, std::clamp(place.bottom, client.top, client.bottom)};
    ClientToScreen(list_, &point);
    return point;
}

}  // namespace kaz
