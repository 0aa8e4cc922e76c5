#pragma once

#include "forms/ReportList.h"
#include "forms/TextRows.h"
#include "reminders/Outcomes.h"

#include <optional>
#include <vector>

namespace kaz {

// The rows of a list of occurrences, of which there can be other ones at any time: what was selected and is
// still there stays selected, else the first one is.
class OccurrenceRows {
public:
    // The list outlives the object, and shows nothing before it is filled.
    explicit OccurrenceRows(ReportList& list) : list_(list) { list_.SetRows(&rows_); }

    // `names` are those of the rows, in their order.
    void Fill(std::vector<OccurrenceRef> names, std::vector<TextRows::Row> rows);
    std::vector<OccurrenceRef> Selected() const;
    // The number of the selected row when it is one alone.
    std::optional<std::size_t> Single() const;
    void SelectAll();

private:
    ReportList& list_;
    TextRows rows_;
    std::vector<OccurrenceRef> names_;
};

}  // namespace kaz
