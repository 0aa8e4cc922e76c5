#pragma once

#include "core/Application.h"
#include "storage/EventOperations.h"
#include "storage/VisibleEvents.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// An event that a window shows, for as long as its code means it.
struct EventRef {
    std::string code;
    EventSource source;
    EventType type;

    // The event of somebody else, whether it has expired or not.
    bool IsForeign() const { return type == EventType::Foreign || source == EventSource::Shared; }
};

// What the user does to events, with the questions and the refusals. What belongs to other users is refused
// with a message, and nothing is changed then.
class EventCommands {
public:
    // Lets the user change the event in a dialog. True when he saved; else the event is as it was.
    using Editor = std::function<bool(clsEvent& event, EditMode mode)>;

    EventCommands(Application& application, Editor editor) : app_(application), editor_(std::move(editor)) {}

    // The code of the new event; nothing when the user gave up. `day`: what the editor begins with, if not
    // today.
    std::optional<std::string> Add(std::optional<DateValue> day = {});
    // Stores a new event of this user's; its code.
    std::string AddNew(clsEvent event);
    // The code of the edited event; nothing when it was not stored.
    std::optional<std::string> Edit(const EventRef& event);
    // The code of the event when it was there to be pushed.
    std::optional<std::string> Push(const EventRef& event);
    // Pushes all of them in one step, but for those that have expired; what belongs to others is refused
    // once. False when none was pushed.
    bool PushAll(const std::vector<EventRef>& events);
    // The day on which the commands below act, if no other is chosen: the due date of one of the user's own
    // recurring events; nothing for any other event.
    std::optional<DateValue> NextDayOf(const EventRef& event) const;
    // The event does not happen on that day, or on its due date. Its code when it was there to be skipped.
    std::optional<std::string> Skip(const EventRef& event, std::optional<DateValue> day = {});
    // Asks for another date on which it happens instead, once, as an event of its own; its code.
    std::optional<std::string> Move(const EventRef& event, std::optional<DateValue> day = {});
    // "Fri 25 Dec", as the user writes dates.
    std::string NameOfDay(DateValue day) const;
    // Asks first; `what` is the text of the event when it is only one. False when the answer was No.
    bool Delete(const std::vector<EventRef>& events, std::string_view what);
    // Lets the user choose with whom the event is shared, and shares the
    // others, which may hold it too, alike.
    std::optional<std::string> ShareWith(const EventRef& event, const std::vector<EventRef>& others);

private:
    std::optional<std::string> Edit(const EventRef& event, EditMode mode, EventOperations& operations);
    void NoteEntered(const std::string& code, const clsEvent* before);
    void NoteMoved(const clsEvent& event);
    // `what` is what can't be done.
    bool Refuses(const EventRef& event, const char* what);
    void RefuseOwners(const clsEvent& event, const std::string& what);
    EventOperations Operations();
    // The day, if it can be left out of the event; else the user is told why not.
    std::optional<DateValue> DayToLeave(const EventRef& event, std::optional<DateValue> day,
                                        const char* what);
    std::optional<DateValue> AskForDate(DateValue day);
    void NoteLeft(const clsEvent& before, DateValue day);
    void TellNoSuchDay(const clsEvent& event, DateValue day);
    // What the operations have changed can be taken back.
    void Record(std::string_view what, EventOperations& operations);

    Application& app_;
    Editor editor_;
};

}  // namespace kaz
