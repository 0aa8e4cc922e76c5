#pragma once

#include "core/Application.h"
#include "storage/EventEditor.h"
#include "storage/EventOperations.h"
#include "ui/list/EventList.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kaz {

// What the user does to the rows of the main list. Rows of other users are refused with a message; nothing is
// changed by a refused row. The list may be filled anew while a dialog is open, so the rows are looked at
// before.
class EventCommands {
public:
    // Makes the dialog of the event editor.
    using EditorFactory = std::function<std::unique_ptr<EventEditor>()>;

    EventCommands(Application& application, const EventList& list, EditorFactory editors)
        : app_(application),
          list_(list),
          editors_(std::move(editors)) {}

    // The code of the new event; nothing when the user gave up.
    std::optional<std::string> Add();
    // The code of the edited event; nothing when it was not stored.
    std::optional<std::string> Edit(int row) { return Edit(RowAt(row), EditMode::Whole); }
    // The code of the event when it was there to be pushed.
    std::optional<std::string> Push(int row);
    // Asks first. False when the answer was No.
    bool Delete(const std::vector<int>& rows);
    // Lets the user choose with whom the event of the row is shared, and shares those of the other rows
    // alike.
    std::optional<std::string> ShareWith(int row, const std::vector<int>& rows);

private:
    struct Row {
        std::string code;
        std::string_view type;  // one of "*", "S", "E" or empty
        EventSource source;
        // The event of somebody else, whether it has expired or not.
        bool IsForeign() const { return type == "S" || source == EventSource::Shared; }
    };
    Row RowAt(int row) const;
    std::optional<std::string> Edit(const Row& row, EditMode mode);
    // Refuses the row of somebody else; `what` is what can't be done.
    bool Refuses(const Row& row, const char* what);
    EventOperations Operations();

    Application& app_;
    const EventList& list_;
    EditorFactory editors_;
};

}  // namespace kaz
