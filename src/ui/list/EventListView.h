#pragma once

#include "commands/EventCommands.h"
#include "forms/ReportList.h"
#include "support/UndoHistory.h"
#include "ui/list/EventList.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

// The list of events as it stands on the window: what is selected in it outlives a sorting and a filling.
class EventListView {
public:
    // `control` is a report list of the window.
    EventListView(Window& window, int control, const Locale& locale)
        : window_(window),
          control_(control),
          list_(locale) {}

    // Once the window is there. `sort` is what SortText said in an earlier run, or empty.
    void Prepare(const std::string& sort);
    // By which column the list is sorted, and how: "4 down".
    std::string SortText() const;
    // Called when the program has selected other rows, or the rows are others.
    void OnSelection(std::function<void()> listener) { listener_ = std::move(listener); }
    // Takes the place of all rows; nothing is selected then.
    void Show(EventRows rows);
    // Colours follow from the Type column; repaints the list with them.
    void SetColours() { Report().Refresh(); }
    bool IsEmpty() const { return list_.RowCount() == 0; }
    void SayWhenEmpty(const std::string& text) { Report().SetEmptyText(text); }
    // Selects the row at that place, the first one where there is none so far down.
    void SelectPlace(int place);
    // The first selected row, -1 when there is none.
    int SelectedRow() const;

    // The event that a command for one event is about.
    std::optional<EventRef> Current() const;
    std::vector<EventRef> Selected() const;
    std::string_view Description(int row) const { return list_.CellText(row, kEventColumn); }
    // The selected rows as lines, the cells between tabs.
    std::string SelectedTexts() const;
    void SelectAll();
    // Selects that event alone, when it is there.
    void SelectOwn(const std::string& code);

    // Selects these alone, as far as they are in the list; without any, the selection stays what it is.
    void SelectEvents(const std::vector<UndoOutcome::Event>& events);

    struct Kept {
        std::vector<EventList::Key> events;
        std::optional<EventList::Key> current;
    };
    // What is selected, to be selected again after a filling wherever it stands then. Events that have gone
    // are left out; without any, the selection stays what it is.
    Kept Keep() const;
    void SelectAgain(const Kept& kept);
    // The first row behind the selected ones that is not selected itself, else the last before them; nothing
    // when all are selected.
    std::optional<EventList::Key> Neighbour() const;

    void SortBy(int column);
    // Shows only what contains the term; what is selected stays so as far as it is shown.
    void Narrow(const std::string& term);
    // Selects the next row from that one on whose description contains the term; false when there is none.
    bool Find(const std::string& term, int from);

private:
    ReportList& Report() const { return window_.Report(control_); }
    int CurrentRow() const;
    void Tell() const {
        if (listener_) listener_();
    }

    Window& window_;
    int control_;
    EventList list_;
    std::function<void()> listener_;
};

}  // namespace kaz
