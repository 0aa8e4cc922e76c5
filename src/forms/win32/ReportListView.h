#pragma once

#include "forms/ReportList.h"
#include "forms/win32/ControlView.h"

#include <commctrl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kaz {

// A list view in report style that owns no data (LVS_OWNERDATA in the template): it asks for the texts and
// colours of the cells that it paints and for nothing else.
class ReportListView : public ReportList, public ControlView {
public:
    using Raise = std::function<void(Raised what, int detail)>;

    // Without a control (null) it is an empty list.
    ReportListView(HWND list, Raise raise);

    void SetColumns(const std::vector<ReportColumn>& columns) override;
    std::vector<ColumnPlace> Columns() const override;
    void PlaceColumns(const std::vector<ColumnPlace>& places) override;
    void SetRows(const ReportRows* rows) override;
    void Refresh() override;
    std::vector<int> Selection() const override;
    int Current() const override;
    void ClearSelection() override;
    void Select(int row) override;
    void SetSelection(const std::vector<int>& rows) override;
    void ShowSortMark(int column, bool ascending) override;
    void SetEmptyText(const std::string& text) override;

    // What stands in the first column, row by row.
    std::vector<std::string> Texts() const;
    // To be called when the list has another width.
    void FitColumns();
    std::optional<LRESULT> OnNotify(const NMHDR& header) override;
    void OnDpiChanged() override;
    // Where a menu belongs that was asked for by the keyboard, in screen coordinates.
    POINT MenuPoint() const;

private:
    bool IsRow(int row) const { return rows_ && row >= 0 && row < shown_; }
    void SetState(int row, UINT state, UINT mask);
    void GiveText(LVITEMW& item) const;
    LRESULT Draw(NMLVCUSTOMDRAW& draw) const;
    bool SaysEmpty() const { return shown_ == 0 && !emptyText_.empty(); }
    void DrawEmptyText(HDC target) const;
    bool HasColours(int row) const;

    HWND list_;
    Raise raise_;
    const ReportRows* rows_ = nullptr;
    int columnCount_ = 0;
    std::map<int, int> hidden_;  // columns that are, and how wide they were
    int growing_ = -1;  // the growing column, how wide it is at least and as it was fitted last, in pixels
    int leastWidth_ = 0;
    int fittedWidth_ = 0;
    int shown_ = 0;
    std::wstring emptyText_;
    int dpi_;
    bool quiet_ = false;  // what the program itself does to the selection is not raised
};

}  // namespace kaz
