#pragma once

#include "forms/ReportList.h"

#include <string>
#include <vector>

namespace kaz {

// Remembers what a report list was told, and plays the user's part. As on the screen, rows that were added or
// taken away count only from the next Refresh on.
class FakeReportList : public ReportList {
public:
    void SetColumns(const std::vector<ReportColumn>& columns) override {
        for (const ReportColumn& column : columns)
            places_.push_back({static_cast<int>(places_.size()), column.growing ? 0 : column.width});
    }
    std::vector<ColumnPlace> Columns() const override { return places_; }
    void PlaceColumns(const std::vector<ColumnPlace>& places) override { places_ = places; }
    void SetRows(const ReportRows* rows) override;
    void Refresh() override;
    std::vector<int> Selection() const override { return selection_; }
    int Current() const override { return current_; }
    void ClearSelection() override { selection_.clear(); }
    void Select(int row) override;
    void SetSelection(const std::vector<int>& rows) override;
    void ShowSortMark(int column, bool ascending) override;
    void SetEmptyText(const std::string&) override {}

    // What the user would see.
    int RowCount() const { return shown_; }
    // Throws std::logic_error when the rows have changed without a Refresh, which
    // on the screen would paint rubbish.
    std::string Cell(int row, int column) const;
    Colour CellColour(int row, int column) const;
    std::vector<std::string> Column(int column) const;

    // What the user does: exactly these rows are selected, the last of them is current.
    void UserSelects(const std::vector<int>& rows);

    int sortColumn = -1;
    bool sortAscending = true;

private:
    const ReportRows& Checked() const;

    const ReportRows* rows_ = nullptr;
    std::vector<ColumnPlace> places_;
    int shown_ = 0;
    std::vector<int> selection_;
    int current_ = -1;
};

}  // namespace kaz
