#pragma once

#include "model/Occurrences.h"
#include "storage/SideFile.h"
#include "storage/clsDbXml.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// One occurrence: an event, the day on which it falls, and when it is told: the minute of its alarm or of a
// second warning, or else the beginning of that day. An answer holds for all that was told up to its moment;
// an event that gets a later time is to be told of once more.
struct OccurrenceRef {
    SideKey key;
    DateValue day;
    DateValue moment;
    friend auto operator<=>(const OccurrenceRef&, const OccurrenceRef&) = default;
};

SideKey KeyOf(const clsDbXml& database, const clsEvent& event);
// When the event is told that falls on that day.
DateValue MomentOf(const clsEvent& event, DateValue day);
// The occurrence on that day of one of the user's own events.
OccurrenceRef OwnOccurrence(const clsEvent& event, DateValue day);

// What became of each occurrence: answered, asleep, or open, which is passed and answered by nobody. An
// answer is what a person gave; that something was shown is none. Kept in the side file, so it outlasts the
// program, and what is answered at one computer is so at every other one that works on the same folder.
class Outcomes {
public:
    explicit Outcomes(SideFile& side) : side_(side) {}

    // Nothing is known as long as the file could not be read.
    bool IsKnown() const { return side_.WasRead(); }

    // The answers of one event, for a walk over many of its days.
    class Answers {
    public:
        Answers(const SideFile& side, const SideKey& key);
        bool Empty() const { return answers_.empty(); }
        bool Has(DateValue day, DateValue moment) const;

    private:
        struct Answer {
            DaySpan days;
            DateValue until;  // of the last day, the moments up to that one
        };
        std::vector<Answer> answers_;
    };
    Answers AnswersOf(const SideKey& key) const { return Answers(side_, key); }
    bool IsAnswered(const OccurrenceRef& occurrence) const {
        return AnswersOf(occurrence.key).Has(occurrence.day, occurrence.moment);
    }
    // Ends them: neither open nor asleep any more, with all that are open in the same entry. Saves.
    void Answer(const std::vector<OccurrenceRef>& occurrences);
    // In memory alone: what nobody has to answer.
    void NoteAnswered(const OccurrenceRef& occurrence);

    // What passed at once is one entry: the last occurrence, the day of the first, and how many there were.
    struct Open {
        OccurrenceRef last;
        DateValue first;
        int count = 1;
        std::string text;       // of another user's event, which can be gone from his file
        bool isMailed = false;  // one's own whose mail went in its time
    };
    // In the order of their events, and of each the older first.
    std::vector<Open> AllOpen() const;
    std::vector<Open> OpenOf(const SideKey& key) const;
    // In memory. The oldest of many entries of one event become one.
    void AddOpen(const Open& open);

    struct Asleep {
        OccurrenceRef occurrence;
        DateValue until;  // at midnight: it stands among the reminders of that day
    };
    std::vector<Asleep> AllAsleep() const;
    std::vector<Asleep> AsleepOf(const SideKey& key) const;
    bool IsAsleep(const OccurrenceRef& occurrence) const;
    // Lets them come again at that time, and at no other; what is `ended` with them is answered. Saves.
    void Sleep(const std::vector<OccurrenceRef>& occurrences, DateValue until,
               const std::vector<OccurrenceRef>& ended = {});
    // The event has another day or time now: what is asleep or open of it is over. In memory.
    void Moved(const SideKey& key);
    // The event does not happen on that day: what is asleep or open of it alone is over. In memory.
    void Skipped(const SideKey& key, DateValue day);

    // Another user's alarm that is still to come, as it was last seen: his program moves it on, or takes it
    // away, whether it has rung here or not.
    struct Awaited {
        OccurrenceRef occurrence;
        std::string text;
    };
    std::vector<Awaited> AllAwaited() const;
    void SetAwaited(const std::string& file, const std::vector<Awaited>& awaited);
    // Whether that file has ever been looked at.
    bool KnowsFile(const std::string& file) const;

    // The events were put back to where they stood at that moment: drops what passed and was answered behind
    // it. In memory.
    void PutBackTo(DateValue moment);
    // Drops what nobody needs any more, and what a clock that was ahead has left. Only by a clock that is
    // right. `needs` tells whether an entry of two weeks ago is needed still.
    template <class Needs>
    void Tidy(DateValue now, Needs needs);
    // Of such an entry: whether it is until its event has moved on from that day, or as long as there is the
    // event.
    static bool IsOfDay(const SideLine& line);

    bool Save() { return side_.Save(); }
    SideFile& Side() { return side_; }

private:
    static bool IsSpent(const SideLine& line, DateValue now);
    static bool IsOld(const SideLine& line, DateValue now);
    void RemoveOpen(const OccurrenceRef& last);
    void RemoveAsleep(const OccurrenceRef& occurrence);

    SideFile& side_;
};

template <class Needs>
void Outcomes::Tidy(DateValue now, Needs needs) {
    for (const Open& open : AllOpen())
        if (IsAnswered(open.last)) RemoveOpen(open.last);
    std::vector<SideLine> leave;
    for (const SideLine& line : side_.All())
        if (IsSpent(line, now) || (IsOld(line, now) && !needs(line))) leave.push_back(line);
    for (const SideLine& line : leave)
        side_.Remove(line);
}

}  // namespace kaz
