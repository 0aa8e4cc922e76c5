#pragma once

#include "base/Text.h"
#include "commands/EventCommands.h"
#include "forms/ReportList.h"
#include "platform/Locale.h"
#include "ui/list/EventRows.h"

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What the main list shows: the rows in their sorted order, their colours, and the search. Rows are counted
// from 0 in display order.
class EventList : public ReportRows {
public:
    // Header texts and widths.
    static std::vector<ReportColumn> Columns();

    explicit EventList(const Locale& locale) : folding_(locale.Folding()) {}

    // Takes the place of all rows; they are shown in the order chosen last, at first by the days left.
    void Show(EventRows rows);
    // A click on a header. One direction serves all columns and flips on every click.
    void SortBy(int column);
    // As it was when the program ended last; a column that is none is ignored.
    void SortBy(int column, bool ascending);
    int SortColumn() const noexcept { return sortColumn_; }
    bool Ascending() const noexcept { return ascending_; }

    // From now on only rows whose event, category or owner contains the term are shown, letter case aside; an
    // empty one shows all.
    void Narrow(std::string term);

    // The first row at or after `from` whose description contains the term, letter case aside.
    std::optional<int> Find(std::string_view term, int from) const noexcept;

    // What stays the same of a row when the list is filled anew; each source has codes of its own.
    struct Key {
        std::string code;
        EventSource source;
        auto operator<=>(const Key&) const = default;
    };
    Key KeyOf(int row) const { return {std::string(Trim(Code(row))), Source(row)}; }
    // The event behind the row, for a command.
    EventRef RefOf(int row) const {
        return {std::string(Trim(Code(row))), Source(row), rows_.Type(order_[static_cast<std::size_t>(row)])};
    }
    // The row of the event with that identity code.
    std::optional<int> RowOf(std::string_view code, EventSource source) const noexcept;
    std::string_view Code(int row) const noexcept {
        return rows_.Code(order_[static_cast<std::size_t>(row)]);
    }
    EventSource Source(int row) const noexcept { return rows_.Source(order_[static_cast<std::size_t>(row)]); }
    // A name for the row, less than AllRows(), that sorting and narrowing leave alone, until the next Show.
    std::uint32_t Identity(int row) const noexcept { return order_[static_cast<std::size_t>(row)]; }

    std::size_t AllRows() const noexcept { return rows_.Count(); }

    int RowCount() const noexcept override { return static_cast<int>(order_.size()); }
    std::string_view CellText(int row, int column) const noexcept override;
    Colour CellColour(int row, int column) const noexcept override;

private:
    void Sort();
    bool Shows(std::size_t row) const noexcept;

    const CaseFolding& folding_;
    EventRows rows_;
    std::string term_;
    std::vector<std::uint32_t> order_;
    int sortColumn_ = kLeftColumn;
    bool ascending_ = true;
};

}  // namespace kaz
