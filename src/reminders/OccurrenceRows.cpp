#include "reminders/OccurrenceRows.h"

#include <numeric>
#include <set>
#include <utility>

namespace kaz {

void OccurrenceRows::Fill(std::vector<OccurrenceRef> names, std::vector<TextRows::Row> rows) {
    const std::vector<OccurrenceRef> before = Selected();
    const std::set<OccurrenceRef> selected(before.begin(), before.end());
    names_ = std::move(names);
    rows_.rows = std::move(rows);
    list_.Refresh();
    std::vector<int> again;
    for (std::size_t row = 0; row < names_.size(); ++row)
        if (selected.contains(names_[row])) again.push_back(static_cast<int>(row));
    list_.SetSelection(again);
    if (again.empty() && !names_.empty()) list_.Select(0);
}

std::vector<OccurrenceRef> OccurrenceRows::Selected() const {
    std::vector<OccurrenceRef> selected;
    for (const int row : list_.Selection())
        if (std::cmp_less(row, names_.size())) selected.push_back(names_[static_cast<std::size_t>(row)]);
    return selected;
}

std::optional<std::size_t> OccurrenceRows::Single() const {
    const std::vector<int> rows = list_.Selection();
    if (rows.size() != 1 || !std::cmp_less(rows.front(), names_.size())) return std::nullopt;
    return static_cast<std::size_t>(rows.front());
}

void OccurrenceRows::SelectAll() {
    std::vector<int> rows(names_.size());
    std::iota(rows.begin(), rows.end(), 0);
    list_.SetSelection(rows);
}

}  // namespace kaz
