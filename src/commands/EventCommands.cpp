#include "commands/EventCommands.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "commands/EventStep.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"

namespace kaz {

namespace {

constexpr std::string_view kReallyDelete = "Are you sure you want to delete the selected event(s)?";

// A box of a whole page would push its buttons off the screen.
constexpr std::size_t kLongestName = 200;

}  // namespace

std::optional<std::string> EventCommands::Add(std::optional<DateValue> day) {
    clsEvent event;
    if (day) event.StartDate(*day);
    if (!editor_(event, EditMode::Whole)) return std::nullopt;
    return AddNew(std::move(event));
}

std::string EventCommands::AddNew(clsEvent event) {
    EventOperations operations = Operations();
    std::string code = operations.AddEvent(std::move(event));
    Record("addition", operations);
    NoteEntered(code, nullptr);
    return code;
}

std::optional<std::string> EventCommands::Edit(const EventRef& event) {
    EventOperations operations = Operations();
    auto edited = Edit(event, EditMode::Whole, operations);
    Record("change", operations);
    return edited;
}

std::optional<std::string> EventCommands::Edit(const EventRef& event, EditMode mode,
                                               EventOperations& operations) {
    if (Refuses(event, "edit") || event.code.empty()) return std::nullopt;
    const bool expired = event.source == EventSource::Expired;
    const clsEvent* found = operations.Read(event.code, expired);
    if (!found) return std::nullopt;
    if (operations.IsOthers(*found)) {
        RefuseOwners(*found, " can edit it");
        return std::nullopt;
    }
    EventEdit edit{*found, *found, expired, mode};
    if (!editor_(edit.after, mode)) return std::nullopt;
    if (operations.EditEvent(edit) == EditResult::Stored) {
        NoteEntered(event.code, &edit.before);
        return event.code;
    }
    const bool keep = app_.platform.dialogs.AskYesNo(
        "This event was deleted or moved while you were editing it.\r\nDo you want to keep your version as a "
        "new event?");
    if (!keep) return std::nullopt;
    operations.EditEvent(edit, true);
    return event.code;
}

std::optional<std::string> EventCommands::Push(const EventRef& event) {
    if (Refuses(event, "push") || event.type == EventType::Past) return std::nullopt;
    EventOperations operations = Operations();
    operations.PushEvent(event.code, false);
    Record("push", operations);
    NoteEntered(event.code, nullptr);
    return event.code;
}

bool EventCommands::PushAll(const std::vector<EventRef>& events) {
    std::vector<std::string> codes;
    const EventRef* foreign = nullptr;
    for (const EventRef& event : events) {
        if (event.IsForeign())
            foreign = &event;
        else if (event.type != EventType::Past)
            codes.push_back(event.code);
    }
    EventOperations operations = Operations();
    operations.PushEvents(codes);
    std::vector<ChangedEvent> changes = operations.TakeChanges();
    for (const ChangedEvent& change : changes)
        NoteMoved(*change.after);
    app_.outcomes.Save();
    const bool pushed = !changes.empty();
    EventStep::Record(app_, "push", std::move(changes));
    if (foreign) Refuses(*foreign, "push");
    return pushed;
}

std::optional<DateValue> EventCommands::NextDayOf(const EventRef& event) const {
    const clsEvent* found = event.IsForeign() || event.source != EventSource::Local || !app_.events
                                ? nullptr
                                : app_.events->ReadEvent(event.code);
    return found && found->Recurring() ? std::optional(found->DueDate()) : std::nullopt;
}

std::string EventCommands::NameOfDay(DateValue day) const {
    return FormatDate(day, app_.EuropeanDates() ? "DDD D MMM" : "DDD MMM D", app_.platform.locale.Data());
}

std::optional<std::string> EventCommands::Skip(const EventRef& event, std::optional<DateValue> day) {
    const auto left = DayToLeave(event, day, "skip");
    if (!left) return std::nullopt;
    EventOperations operations = Operations();
    const clsEvent before = *operations.Read(event.code, false);
    const bool done = operations.SkipDay(event.code, *left);
    Record("skip", operations);
    if (done)
        NoteLeft(before, *left);
    else
        TellNoSuchDay(before, *left);
    return event.code;
}

std::optional<std::string> EventCommands::Move(const EventRef& event, std::optional<DateValue> day) {
    const auto left = DayToLeave(event, day, "move");
    const auto to = left ? AskForDate(*left) : std::nullopt;
    if (!to) return std::nullopt;
    EventOperations operations = Operations();
    const clsEvent* found = operations.Read(event.code, false);
    if (!found) return std::nullopt;  // deleted while the date was chosen
    const clsEvent before = *found;
    auto added = operations.MoveDay(event.code, *left, *to);
    EventStep::Record(app_, "move", operations.TakeChanges(), EventStep::Of::First);
    if (!added) {
        TellNoSuchDay(before, *left);
        return event.code;
    }
    NoteLeft(before, *left);
    NoteEntered(*added, nullptr);
    return added;
}

std::optional<DateValue> EventCommands::DayToLeave(const EventRef& event, std::optional<DateValue> day,
                                                   const char* what) {
    if (Refuses(event, what)) return std::nullopt;
    Dialogs& dialogs = app_.platform.dialogs;
    if (event.source == EventSource::Expired) {
        dialogs.Message("This event has expired. To have it again, edit it.");
        return std::nullopt;
    }
    EventOperations operations = Operations();
    const clsEvent* found = operations.Read(event.code, false);
    if (!found || found->Deleted) return std::nullopt;
    if (operations.IsOthers(*found)) {
        RefuseOwners(*found, std::string(" can ") + what + " it");
        return std::nullopt;
    }
    if (!found->Recurring()) {
        dialogs.Message("This event is shown once. Push puts it off by a day, and Edit gives it another "
                        "date.");
        return std::nullopt;
    }
    const DateValue left = day.value_or(found->DueDate());
    if (left >= app_.platform.clock.Today()) return left;
    dialogs.Message(NameOfDay(left) + " has passed.");
    return std::nullopt;
}

// Nothing when the user gave up, or left it where it was.
std::optional<DateValue> EventCommands::AskForDate(DateValue day) {
    Dialogs& dialogs = app_.platform.dialogs;
    for (DateValue initial = day;;) {
        const auto to = dialogs.PickDate("Move " + NameOfDay(day) + " to", initial);
        if (!to || to->DateOnly() == day) return std::nullopt;
        if (to->DateOnly() >= app_.platform.clock.Today()) return to->DateOnly();
        dialogs.Message("That day has passed. Please choose today or a later one.");
        initial = app_.platform.clock.Today();
    }
}

void EventCommands::NoteLeft(const clsEvent& before, DateValue day) {
    app_.outcomes.Skipped(KeyOf(*app_.events, before), day);
    app_.outcomes.Save();
}

void EventCommands::TellNoSuchDay(const clsEvent& event, DateValue day) {
    app_.platform.dialogs.Message("\"" + OneLine(Beginning(event.Desc(), kLongestName)) +
                                  "\" does not fall on " + NameOfDay(day) + " any more.");
}

bool EventCommands::Delete(const std::vector<EventRef>& events, std::string_view what) {
    if (events.empty()) return false;
    // What is deleted by a key pressed too much, or because another row is selected than the user thinks, is
    // seen here.
    const bool several = events.size() > 1;
    const std::string named =
        several ? std::to_string(events.size()) + " events" : Beginning(what, kLongestName);
    Dialogs& dialogs = app_.platform.dialogs;
    if (!dialogs.AskYesNo(std::string(kReallyDelete) + "\r\n" + named,
                          several ? Dialogs::Default::No : Dialogs::Default::Yes))
        return false;

    std::vector<std::string> current;
    std::vector<std::string> expired;
    bool refused = false;
    for (const EventRef& event : events) {
        if (event.IsForeign())
            refused = true;
        else
            (event.source == EventSource::Expired ? expired : current).push_back(event.code);
    }
    EventOperations operations = Operations();
    const std::vector<clsEvent> others = operations.DeleteEvents(current);
    operations.DeleteExpiredEvents(expired);
    Record("deletion", operations);
    for (const clsEvent& event : others)
        RefuseOwners(event, " can delete it.");
    if (refused) dialogs.Message("You can't delete events belonging to another user");
    return true;
}

std::optional<std::string> EventCommands::ShareWith(const EventRef& event,
                                                    const std::vector<EventRef>& others) {
    EventOperations operations = Operations();
    auto edited = Edit(event, EditMode::SharingOnly, operations);
    const clsEvent* found = edited ? operations.Read(*edited, false) : nullptr;
    if (found) {
        std::vector<std::string> codes;
        for (const EventRef& other : others)
            if (other.source == EventSource::Local && !other.IsForeign() && other.code != event.code)
                codes.push_back(other.code);
        operations.ShareLike(codes, clsEvent(*found));
    }
    Record("sharing", operations);
    return edited;
}

// Of what has just been entered for a time that has passed, the user knows; and what was put to sleep for the
// time of before is over.
void EventCommands::NoteEntered(const std::string& code, const clsEvent* before) {
    const clsEvent* event = app_.events->ReadEvent(code);
    if (!event) return;
    if (before && before->DueDate() == event->DueDate() && before->DueTime() == event->DueTime()) return;
    NoteMoved(*event);
    app_.outcomes.Save();
}

void EventCommands::NoteMoved(const clsEvent& event) {
    app_.outcomes.Moved(KeyOf(*app_.events, event));
    app_.Missed().NoteEntered(event, app_.platform.clock.Now());
}

bool EventCommands::Refuses(const EventRef& event, const char* what) {
    if (!event.IsForeign()) return false;
    app_.platform.dialogs.Message("You can't " + std::string(what) +
                                  " a shared item belonging to someone else");
    return true;
}

void EventCommands::RefuseOwners(const clsEvent& event, const std::string& what) {
    app_.platform.dialogs.Message("You're not the owner of this event.  Only " + event.Owner() + what);
}

EventOperations EventCommands::Operations() {
    if (!app_.events || !app_.expired)
        throw RuntimeError(ErrorNumber::InternalError, "The event files could not be opened");
    return EventOperations(*app_.events, *app_.expired, app_.Storage());
}

void EventCommands::Record(std::string_view what, EventOperations& operations) {
    EventStep::Record(app_, what, operations.TakeChanges());
}

}  // namespace kaz
