#pragma once

#include "reminders/Outcomes.h"
#include "storage/VisibleEvents.h"
#include "storage/clsDbXml.h"

#include <set>
#include <string>
#include <vector>

namespace kaz {

// An event that fell due and that nobody has answered, with all its occurrences of that kind.
struct MissedReminder {
    std::vector<OccurrenceRef> occurrences;  // what an answer ends; the last of them is the last one
    DateValue moment;                        // of the last one
    bool isTimed = false;                    // else the moment is a day
    int count = 1;
    std::string text;
    std::string whose;                        // the user in whose file it came, "" for one's own
    std::string file;                         // that was not run
    std::string mail;                         // the addresses that had no mail
    EventSource source = EventSource::Local;  // where the event is now
    friend bool operator==(const MissedReminder&, const MissedReminder&) = default;
};

// Finds what fell due without an answer: before the engine moves an event on, what it moves it on from; and
// of the day itself, the alarms whose time has passed. What only runs a file, and no alarm of its own, is
// shown by no window and so missed by none.
class MissedReminders {
public:
    // The databases as they are now; null ones have no events.
    MissedReminders(const VisibleEvents& visible, Outcomes& outcomes, const clsDbXml* events,
                    const clsDbXml* expired, const clsDbXml* shared)
        : visible_(visible),
          outcomes_(outcomes),
          events_(events),
          expired_(expired),
          shared_(shared) {}

    // At the very first start of all, nothing of before counts. In memory.
    void BeginAnew(DateValue now);
    // To be called before the event moves on from days before `today`, or expires; with what is `onScreen`,
    // to be answered there. In memory.
    static void NotePassed(Outcomes& outcomes, const clsEvent& event, DateValue today,
                           const std::set<OccurrenceRef>& onScreen);
    // To be called when other users' events have been read, or moved on in memory. In memory.
    void NoteShared(DateValue now, const std::set<OccurrenceRef>& onScreen);
    // Whether anything of its own time was entered late: nobody has to be told of it. In memory.
    void NoteEntered(const clsEvent& event, DateValue now);

    // What is missed now, the newest first, without what is `onScreen` in another window.
    std::vector<MissedReminder> List(DateValue now, const std::set<OccurrenceRef>& onScreen) const;

    // The event of an occurrence, wherever it is now; null when it has gone.
    const clsEvent* EventOf(const OccurrenceRef& occurrence, EventSource* source = nullptr) const;

private:
    class Found;
    void AddOpen(Found& found) const;
    void AddDue(Found& found, const clsDbXml* database, EventSource source, DateValue now) const;

    VisibleEvents visible_;
    Outcomes& outcomes_;
    const clsDbXml* events_;
    const clsDbXml* expired_;
    const clsDbXml* shared_;
};

}  // namespace kaz
