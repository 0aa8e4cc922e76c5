#pragma once

#include "commands/EventCommands.h"
#include "core/Application.h"
#include "forms/Window.h"
#include "ui/list/EventListView.h"
#include "ui/main/ReminderClock.h"
#include "ui/main/RowCommands.h"

#include <functional>
#include <optional>
#include <string>

namespace kaz {

// What the user does to the events that the list has selected. Behind each command the window shows what has
// become of them.
class EventMenu {
public:
    // What the window does with what has become of the events.
    struct Face {
        // Shows them anew, and selects the one with that code if there is one. False when the window has gone
        // meanwhile.
        std::function<bool(const std::optional<std::string>& code)> show;
        std::function<void()> showCategories;  // anew
    };

    // All of them outlive the object.
    EventMenu(Window& window, Application& application, EventListView& list, ReminderClock& clock,
              EventCommands::Editor editor, Face face);

    void Add();
    void Edit();
    void Push();
    void Skip();
    void Move();
    void Delete();
    void ShareWith();
    void Undo() { TakeStep(UndoHistory::Way::Back); }
    void Redo() { TakeStep(UndoHistory::Way::Again); }

    // Puts the selected rows on the clipboard.
    void Copy();

    // Has the menus say what would be taken back.
    void NameSteps();
    // What of all this fits the selected events.
    RowCommands& Rows() { return rows_; }

    // For the windows of the reminders: opens the event in the editor. True when it has another day or time
    // now.
    bool EditOccurrence(const OccurrenceRef& occurrence);

private:
    using Command = std::function<std::optional<std::string>(const EventRef&)>;
    // Does it, and shows the event that has come of it; false when nothing has.
    bool Do(const EventRef& event, const Command& command);
    // A command that asks: the list stands still behind its dialog.
    bool Ask(const EventRef& event, const Command& command);
    bool Edit(const EventRef& event);
    void TakeStep(UndoHistory::Way way);

    Window& window_;
    Application& app_;
    EventListView& list_;
    ReminderClock& clock_;
    EventCommands commands_;
    RowCommands rows_;
    Face face_;
};

}  // namespace kaz
