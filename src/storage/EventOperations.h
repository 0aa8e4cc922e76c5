#pragma once

#include "model/clsEvent.h"
#include "storage/ChangedEvent.h"
#include "storage/clsDbXml.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

enum class EditMode { Whole, SharingOnly };

// An event as it was, and as its user has changed it since.
struct EventEdit {
    clsEvent before;
    clsEvent after;
    bool fromExpired = false;
    EditMode mode = EditMode::Whole;
};
// Gone: it was deleted or has moved meanwhile.
enum class EditResult { Stored, Gone };

// The operations on events: add, edit, push and delete, with the rule of ownership. Nothing is asked and
// nothing is shown here. The databases are looked into anew each time, since alarms, a new day or another
// user's save may have changed them while a dialog was open.
class EventOperations {
public:
    EventOperations(clsDbXml& events, clsDbXml& expired, const Stores& stores)
        : events_(events),
          expired_(expired),
          stores_(stores) {}

    // The event of the events database or, with `fromExpired`, of the expired one; null when there is none.
    const clsEvent* Read(const std::string& code, bool fromExpired) {
        return Source(fromExpired).ReadEvent(code);
    }
    // Whether it belongs to another user, who alone may edit and delete it.
    bool IsOthers(const clsEvent& event) const;

    // Stores the event under a new code, which is returned.
    std::string AddEvent(clsEvent event);
    // Stores the edited event; an expired one moves back to the current events. One that is gone is stored as
    // a new event only with `keepWhenGone`.
    EditResult EditEvent(const EventEdit& edit, bool keepWhenGone = false);
    // Puts the due date off by one day; an expired event becomes current again.
    void PushEvent(const std::string& code, bool fromExpired);
    // The current events with those codes, with one save.
    void PushEvents(const std::vector<std::string>& codes);
    // The recurring event does not happen on that day, from today on. A due date moves on; after the last of
    // its series the event expires. False, and nothing is changed, when it does not fall on that day.
    bool SkipDay(const std::string& code, DateValue day);
    // Skips that day, and stores an event that is like this one, and shown once, on the day `to`, from today
    // on. Its code; nothing, and nothing is changed, when the event does not fall on the first day.
    std::optional<std::string> MoveDay(const std::string& code, DateValue day, DateValue to);
    // Deletes the events with one save, but for those of other users, which are returned.
    std::vector<clsEvent> DeleteEvents(const std::vector<std::string>& codes);
    // Has no regard to ownership.
    void DeleteExpiredEvents(const std::vector<std::string>& codes);
    // Shares the current events as `model` is shared; those of other users stay.
    void ShareLike(const std::vector<std::string>& codes, const clsEvent& model);

    // What the operations have changed since it was last asked for.
    std::vector<ChangedEvent> TakeChanges() { return std::exchange(changes_, {}); }

private:
    static std::vector<const clsEvent*> Find(const clsDbXml& database, const std::vector<std::string>& codes);
    clsDbXml& Source(bool fromExpired) { return fromExpired ? expired_ : events_; }
    // Whether that event is in the expired database now, and no longer among the current ones.
    bool HasExpired(const clsEvent& event);
    // Reads what another program has saved while a dialog was open.
    void CatchUp();
    // The event with its dates brought up to date, as it is stored after an edit.
    clsEvent Updated(clsEvent event);
    // `before` is what it was. An event whose code another one has by now gets a new one, or else it would
    // take that one's place.
    void StoreBack(clsEvent event, const clsEvent& before, bool fromExpired);
    bool FallsOn(const clsEvent* event, DateValue day) const;
    // Moves the current event, as it is now, to the expired ones.
    void Retire(clsEvent event, const clsEvent& before);
    void NoteDeletion(const clsEvent& event, bool expired);

    clsDbXml& events_;
    clsDbXml& expired_;
    Stores stores_;
    std::vector<ChangedEvent> changes_;
};

}  // namespace kaz
