#include "ui/list/EventListView.h"

#include "base/Numbers.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

namespace kaz {

namespace {
constexpr int kLastRememberedRow = 65533;
constexpr std::string_view kDown = " down";

int ColumnIn(std::string_view sort) {
    return static_cast<int>(std::clamp(LeadingNumber(sort), -1.0, double{kEventColumns}));
}
}  // namespace

void EventListView::Prepare(const std::string& sort) {
    if (!sort.empty()) list_.SortBy(ColumnIn(sort), !sort.ends_with(kDown));
    Report().SetColumns(EventList::Columns());
    Report().SetRows(&list_);
    Report().ShowSortMark(list_.SortColumn(), list_.Ascending());
}

std::string EventListView::SortText() const {
    return std::to_string(list_.SortColumn()) + std::string(list_.Ascending() ? " up" : kDown);
}

void EventListView::Show(EventRows rows) { list_.Show(std::move(rows)); }

void EventListView::SelectPlace(int place) {
    Report().ClearSelection();
    if (list_.RowCount() == 0) return Tell();
    // Kept on purpose: the place in the list is remembered, not the event; beyond
    // this bound it is the first row.
    const bool there = place >= 0 && place <= kLastRememberedRow && place < list_.RowCount();
    Report().Select(there ? place : 0);
    Tell();
}

int EventListView::SelectedRow() const {
    const std::vector<int> rows = Report().Selection();
    return rows.empty() ? -1 : rows.front();
}

int EventListView::CurrentRow() const {
    const std::vector<int> rows = Report().Selection();
    const int current = Report().Current();
    const bool isSelected = std::find(rows.begin(), rows.end(), current) != rows.end();
    if (isSelected) return current;
    return rows.empty() ? -1 : rows.front();
}

std::optional<EventRef> EventListView::Current() const {
    const int row = CurrentRow();
    return row < 0 ? std::nullopt : std::optional(list_.RefOf(row));
}

std::vector<EventRef> EventListView::Selected() const {
    std::vector<EventRef> events;
    for (const int row : Report().Selection())
        events.push_back(list_.RefOf(row));
    return events;
}

std::string EventListView::SelectedTexts() const {
    std::string texts;
    for (const int row : Report().Selection()) {
        for (int column = 0; column < kEventColumns; ++column)
            texts.append(column == 0 ? "" : "\t").append(list_.CellText(row, column));
        texts.append(kLineBreak);
    }
    return texts;
}

void EventListView::SelectAll() {
    std::vector<int> rows(static_cast<std::size_t>(list_.RowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    Report().SetSelection(rows);
    Tell();
}

void EventListView::SelectOwn(const std::string& code) {
    const auto row = list_.RowOf(code, EventSource::Local);
    if (!row) return;
    Report().ClearSelection();
    Report().Select(*row);
    Tell();
}

void EventListView::SelectEvents(const std::vector<UndoOutcome::Event>& events) {
    Kept kept;
    for (const UndoOutcome::Event& event : events)
        kept.events.push_back({event.code, event.expired ? EventSource::Expired : EventSource::Local});
    if (!kept.events.empty()) kept.current = kept.events.front();
    SelectAgain(kept);
}

EventListView::Kept EventListView::Keep() const {
    Kept kept;
    for (const int row : Report().Selection())
        kept.events.push_back(list_.KeyOf(row));
    if (const int row = CurrentRow(); row >= 0) kept.current = list_.KeyOf(row);
    return kept;
}

void EventListView::SelectAgain(const Kept& kept) {
    const std::set<EventList::Key> wanted(kept.events.begin(), kept.events.end());
    std::vector<int> rows;
    int currentRow = -1;
    for (int row = 0; !wanted.empty() && row < list_.RowCount(); ++row) {
        const EventList::Key key = list_.KeyOf(row);
        if (!wanted.contains(key)) continue;
        rows.push_back(row);
        if (key == kept.current) currentRow = row;
    }
    if (rows.empty()) return;
    Report().SetSelection(rows);
    Report().Select(currentRow < 0 ? rows.front() : currentRow);
    Tell();
}

std::optional<EventList::Key> EventListView::Neighbour() const {
    const std::vector<int> rows = Report().Selection();
    if (rows.empty()) return std::nullopt;
    const std::set<int> selected(rows.begin(), rows.end());
    int row = *selected.begin();
    while (row < list_.RowCount() && selected.contains(row))
        ++row;
    if (row == list_.RowCount()) row = *selected.begin() - 1;
    return row < 0 ? std::nullopt : std::optional(list_.KeyOf(row));
}

void EventListView::SortBy(int column) {
    // The list on the screen marks rows by their place only, so the marks have to move along with the events.
    const std::vector<int> marked = Report().Selection();
    const int current = Report().Current();
    std::vector<bool> isMarked(list_.AllRows());
    for (const int row : marked)
        isMarked.at(list_.Identity(row)) = true;
    const auto currentIdentity = current < 0 ? 0 : list_.Identity(current);

    list_.SortBy(column);
    Report().ShowSortMark(list_.SortColumn(), list_.Ascending());
    SetColours();
    if (marked.empty()) return;
    std::vector<int> moved;
    int newCurrent = -1;
    for (int row = 0; row < list_.RowCount(); ++row) {
        if (!isMarked[list_.Identity(row)]) continue;
        moved.push_back(row);
        if (current >= 0 && list_.Identity(row) == currentIdentity) newCurrent = row;
    }
    Report().SetSelection(moved);
    if (newCurrent >= 0) Report().Select(newCurrent);
}

void EventListView::Narrow(const std::string& term) {
    const Kept kept = Keep();
    Report().ClearSelection();
    list_.Narrow(term);
    SetColours();
    SelectAgain(kept);
    if (Report().Selection().empty()) SelectPlace(0);
}

bool EventListView::Find(const std::string& term, int from) {
    const auto row = list_.Find(term, from);
    if (!row) return false;
    Report().ClearSelection();
    Report().Select(*row);
    Tell();
    return true;
}

}  // namespace kaz
