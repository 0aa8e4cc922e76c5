#pragma once

#include "forms/Window.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What a report list shows: rows and columns count from 0, in display order. The
// list asks only for what it paints.
class ReportRows {
public:
    virtual ~ReportRows() = default;
    virtual int RowCount() const noexcept = 0;
    virtual std::string_view CellText(int row, int column) const noexcept = 0;
    virtual Colour CellColour(int row, int column) const noexcept = 0;
};

struct ReportColumn {
    std::string header;
    int width = 60;  // in units of 1/96 inch
    // It takes what the others leave of the list, yet never less than `width`. One column at most.
    bool growing = false;
};

// Where a column stands and how wide it is, in units of 1/96 inch: 0 for one that takes what the others
// leave.
struct ColumnPlace {
    int column = 0;
    int width = 0;
    bool shown = true;
    friend bool operator==(const ColumnPlace&, const ColumnPlace&) = default;
};

// A virtual report list: it holds no texts of its own.
class ReportList {
public:
    virtual ~ReportList() = default;
    virtual void SetColumns(const std::vector<ReportColumn>& columns) = 0;
    // From left to right, as the user has them.
    virtual std::vector<ColumnPlace> Columns() const = 0;
    // Each column once. From now on the user can drag them to other places.
    virtual void PlaceColumns(const std::vector<ColumnPlace>& places) = 0;
    // The rows are not owned and must live as long as the window or until replaced.
    // Call Refresh after every change.
    virtual void SetRows(const ReportRows* rows) = 0;
    // Takes the row count anew and repaints once. The selection is left to the caller.
    virtual void Refresh() = 0;
    // Selected rows in display order; the current row (the one with the focus mark), -1 when there is none.
    virtual std::vector<int> Selection() const = 0;
    virtual int Current() const = 0;
    virtual void ClearSelection() = 0;
    // Selects the row, makes it current and scrolls it into view; other rows keep their state.
    virtual void Select(int row) = 0;
    // Selects exactly these rows, however many, with one repaint; the current
    // row and the scroll position stay.
    virtual void SetSelection(const std::vector<int>& rows) = 0;
    // What stands in the list while it has no rows; an empty text for nothing.
    virtual void SetEmptyText(const std::string& text) = 0;
    // The arrow in the header; column -1 shows none.
    virtual void ShowSortMark(int column, bool ascending) = 0;
};

}  // namespace kaz
