#include "fakes/FakeReportList.h"

#include <algorithm>
#include <stdexcept>

namespace kaz {

void FakeReportList::SetRows(const ReportRows* rows) {
    rows_ = rows;
    Refresh();
}

void FakeReportList::Refresh() {
    shown_ = rows_ ? rows_->RowCount() : 0;
    std::erase_if(selection_, [this](int row) { return row >= shown_; });
    if (current_ >= shown_) current_ = -1;
}

void FakeReportList::Select(int row) {
    if (row < 0 || row >= shown_) return;
    if (std::find(selection_.begin(), selection_.end(), row) == selection_.end()) {
        selection_.push_back(row);
        std::sort(selection_.begin(), selection_.end());
    }
    current_ = row;
}

void FakeReportList::SetSelection(const std::vector<int>& rows) {
    selection_ = rows;
    std::erase_if(selection_, [this](int row) { return row < 0 || row >= shown_; });
    std::sort(selection_.begin(), selection_.end());
}

void FakeReportList::ShowSortMark(int column, bool ascending) {
    sortColumn = column;
    sortAscending = ascending;
}

const ReportRows& FakeReportList::Checked() const {
    if (!rows_ || rows_->RowCount() != shown_)
        throw std::logic_error("The rows have changed without a Refresh");
    return *rows_;
}

std::string FakeReportList::Cell(int row, int column) const {
    return std::string(Checked().CellText(row, column));
}

Colour FakeReportList::CellColour(int row, int column) const { return Checked().CellColour(row, column); }

std::vector<std::string> FakeReportList::Column(int column) const {
    std::vector<std::string> texts;
    for (int row = 0; row < shown_; ++row)
        texts.push_back(Cell(row, column));
    return texts;
}

void FakeReportList::UserSelects(const std::vector<int>& rows) {
    ClearSelection();
    for (const int row : rows)
        Select(row);
}

}  // namespace kaz
