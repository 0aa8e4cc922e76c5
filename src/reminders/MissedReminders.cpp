#include "reminders/MissedReminders.h"

#include "base/Text.h"
#include "model/AlarmTime.h"
#include "model/Occurrences.h"
#include "platform/Files.h"
#include "reminders/OccurrenceEvents.h"
#include "reminders/ReminderText.h"
#include "storage/SharedFolder.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace kaz {

namespace {

// A series is looked through for so long; what is older than that is told by its last day.
constexpr int kLongestLook = 400;
constexpr std::size_t kLongestText = 500;

bool IsTold(const clsEvent& event) { return !event.ExecFile || event.AlarmSet(); }

// The days from the due date on whose alarm should have rung before this minute: that of tomorrow may have
// been today.
template <class Use>
void ForEachRung(const clsEvent& event, DateValue now, Use use) {
    const DateValue tomorrow(now.Day() + 1);
    if (!event.AlarmSet() || event.DueDate() > tomorrow) return;
    for (const DateValue day : Occurrences(event, {event.DueDate(), tomorrow}, now.DateOnly()))
        if (const auto minute = AlarmMinute(event, day); minute && *minute < now.ToMinute())
            use(day, *minute);
}

// What is told of one event already, so that a walk over many of its days looks there once.
class Told {
public:
    Told(const Outcomes& outcomes, const SideKey& key)
        : answers_(outcomes.AnswersOf(key)),
          asleep_(outcomes.AsleepOf(key)) {
        for (const Outcomes::Open& open : outcomes.OpenOf(key))
            noted_ = std::max(noted_, open.last.day);
    }

    bool Has(const clsEvent& event, DateValue day) const {
        if (day <= noted_) return true;
        if (answers_.Empty() && asleep_.empty()) return false;
        const DateValue moment = MomentOf(event, day);
        return answers_.Has(day, moment) ||
               std::any_of(asleep_.begin(), asleep_.end(), [&](const Outcomes::Asleep& asleep) {
                   return asleep.occurrence.day == day && moment <= asleep.occurrence.moment;
               });
    }

private:
    Outcomes::Answers answers_;
    std::vector<Outcomes::Asleep> asleep_;
    DateValue noted_{kFirstDay};
};

// The event's unanswered days before `end`, as one entry; those on the screen, which are answered there, as
// one each.
std::vector<Outcomes::Open> Passed(const Outcomes& outcomes, const SideKey& key, const clsEvent& event,
                                   DateValue end, DateValue today, const std::set<OccurrenceRef>& onScreen) {
    const Told told(outcomes, key);
    std::vector<Outcomes::Open> passed;
    std::optional<Outcomes::Open> rest;
    const auto isMailed = [&](DateValue day) { return event.MailSent && day == event.DueDate(); };
    const auto look = [&](DateValue day) {
        if (told.Has(event, day)) return;
        if (!onScreen.empty()) {
            const OccurrenceRef occurrence{key, day, MomentOf(event, day)};
            if (onScreen.contains(occurrence)) {
                passed.push_back({occurrence, day, 1, "", isMailed(day)});
                return;
            }
        }
        if (!rest) rest = Outcomes::Open{{key, day, day}, day, 0, ""};
        rest->last.day = day;
        ++rest->count;
    };
    const DateValue last(end.Day() - 1);
    const DateValue first = std::max(event.DueDate(), DateValue(end.Day() - kLongestLook));
    for (const DateValue day : Occurrences(event, {first, last}, today))
        look(day);
    if (!rest && event.DueDate() < first && !event.Extras().Skips(event.DueDate())) look(event.DueDate());
    if (rest) {
        rest->last.moment = MomentOf(event, rest->last.day);
        rest->isMailed = isMailed(rest->last.day);
        passed.push_back(*rest);
    }
    return passed;
}

std::string WhoseFile(const std::string& user) { return WithExtension(SharedFolder::NameOf(user), ""); }

std::string UserOf(std::string_view file) {
    return file == kOwnEvents ? std::string()
                              : std::string(file.substr(std::min(file.size(), WhoseFile("").size())));
}

std::string ShortText(const clsEvent& event) { return Beginning(event.DescShown(), kLongestText); }

}  // namespace

void MissedReminders::NotePassed(Outcomes& outcomes, const clsEvent& event, DateValue today,
                                 const std::set<OccurrenceRef>& onScreen) {
    if (!IsTold(event)) return;
    const SideKey key = OwnOccurrence(event, event.DueDate()).key;
    for (const Outcomes::Open& open : Passed(outcomes, key, event, today, today, onScreen))
        outcomes.AddOpen(open);
}

void MissedReminders::BeginAnew(DateValue now) {
    visible_.ForEach(events_, EventSource::Local, [&](const VisibleEvent& seen) {
        const SideKey key = KeyOf(*events_, seen.event);
        for (const Outcomes::Open& open :
             Passed(outcomes_, key, seen.event, now.DateOnly(), now.DateOnly(), {})) {
            outcomes_.AddOpen(open);
            outcomes_.NoteAnswered(open.last);
        }
        NoteEntered(seen.event, now);
    });
}

void MissedReminders::NoteEntered(const clsEvent& event, DateValue now) {
    const SideKey key = OwnOccurrence(event, event.DueDate()).key;
    ForEachRung(event, now, [&](DateValue day, DateValue minute) {
        outcomes_.NoteAnswered({key, day, minute});
    });
    for (const DayWarning& warning : WarningsAt(event, now.ToMinute().PlusMinutes(-1)))
        outcomes_.NoteAnswered({key, warning.day, warning.minute});
}

void MissedReminders::NoteShared(DateValue now, const std::set<OccurrenceRef>& onScreen) {
    if (!shared_) return;
    std::map<std::string, std::vector<Outcomes::Awaited>> coming;
    std::map<SideKey, const clsEvent*> current;
    for (const std::string& user : shared_->SourcesRead())
        coming[WhoseFile(user)];
    visible_.ForEach(shared_, EventSource::Shared, [&](const VisibleEvent& seen) {
        const auto minute = AlarmMinute(seen.event, seen.due);
        const SideKey key = KeyOf(*shared_, seen.event);
        const auto file = coming.find(key.file);
        if (!minute || file == coming.end()) return;
        file->second.push_back({{key, seen.due, *minute}, ShortText(seen.event)});
        current.emplace(key, &seen.event);
        // Of somebody who has just joined, nothing of before counts.
        if (!outcomes_.KnowsFile(key.file) && *minute < now.ToMinute())
            outcomes_.NoteAnswered({key, seen.due, *minute});
    });
    for (const Outcomes::Awaited& awaited : outcomes_.AllAwaited()) {
        const SideKey& key = awaited.occurrence.key;
        const auto found = current.find(key);
        const clsEvent* event = found == current.end() ? nullptr : found->second;
        if (!coming.contains(key.file) || awaited.occurrence.moment > now) continue;
        if (event && event->DueDate() <= awaited.occurrence.day) continue;
        std::vector<Outcomes::Open> passed;
        if (event) {
            clsEvent before = *event;
            before.DueDate(awaited.occurrence.day);
            passed = Passed(outcomes_, key, before, std::min(event->DueDate(), now.PlusDays(1).DateOnly()),
                            now.DateOnly(), onScreen);
        } else if (!outcomes_.IsAnswered(awaited.occurrence) && !outcomes_.IsAsleep(awaited.occurrence)) {
            passed.push_back({awaited.occurrence, awaited.occurrence.day, 1, ""});
        }
        for (Outcomes::Open& open : passed) {
            open.text = awaited.text;
            outcomes_.AddOpen(open);
        }
    }
    for (const auto& [file, awaited] : coming)
        outcomes_.SetAwaited(file, awaited);
}

// The list as it grows: an event that repeats stands in it once.
class MissedReminders::Found {
public:
    explicit Found(const std::set<OccurrenceRef>& onScreen) : onScreen_(onScreen) {}

    bool IsOnScreen(const OccurrenceRef& occurrence) const { return onScreen_.contains(occurrence); }
    // To be called with the older occurrences of an event first.
    MissedReminder& Add(const OccurrenceRef& occurrence, int count) {
        const auto [place, isNew] = places_.emplace(occurrence.key, list_.size());
        if (isNew) list_.emplace_back().count = 0;
        MissedReminder& missed = list_[place->second];
        missed.occurrences.push_back(occurrence);
        missed.count += count;
        missed.moment = occurrence.moment;
        missed.whose = UserOf(occurrence.key.file);
        return missed;
    }
    std::vector<MissedReminder> TheNewestFirst() && {
        std::stable_sort(list_.begin(), list_.end(), [](const MissedReminder& a, const MissedReminder& b) {
            return a.moment > b.moment;
        });
        return std::move(list_);
    }

private:
    const std::set<OccurrenceRef>& onScreen_;
    std::map<SideKey, std::size_t> places_;
    std::vector<MissedReminder> list_;
};

std::vector<MissedReminder> MissedReminders::List(DateValue now,
                                                  const std::set<OccurrenceRef>& onScreen) const {
    if (!outcomes_.IsKnown()) return {};
    Found found(onScreen);
    AddOpen(found);
    AddDue(found, events_, EventSource::Local, now);
    AddDue(found, shared_, EventSource::Shared, now);
    return std::move(found).TheNewestFirst();
}

void MissedReminders::AddOpen(Found& found) const {
    OccurrenceEvents all(events_, expired_, shared_);
    for (const Outcomes::Open& open : outcomes_.AllOpen()) {
        if ((open.count == 1 && found.IsOnScreen(open.last)) || outcomes_.IsAsleep(open.last)) continue;
        EventSource source = EventSource::Local;
        const clsEvent* event = all.Find(open.last, &source);
        // Own events that have gone were deleted by somebody who knew of them.
        if (!event && open.text.empty()) continue;
        MissedReminder& missed = found.Add(open.last, open.count);
        missed.isTimed = !event || AlarmMinute(*event, open.last.day);
        missed.text = event ? std::string(event->DescShown()) : open.text;
        missed.source = source;
        if (event && event->ExecFile) missed.file = event->Filename;
        // Others' mails are sent by their own programs.
        if (event && source != EventSource::Shared && !open.isMailed) missed.mail = MailAddresses(*event);
    }
}

void MissedReminders::AddDue(Found& found, const clsDbXml* database, EventSource source,
                             DateValue now) const {
    visible_.ForEach(database, source, [&](const VisibleEvent& seen) {
        const clsEvent& event = seen.event;
        // What has passed has been noted by whoever moved it on.
        if (!event.AlarmSet() || (source == EventSource::Local && seen.due < now.DateOnly())) return;
        ForEachRung(event, now, [&](DateValue day, DateValue minute) {
            const OccurrenceRef due{KeyOf(*database, event), day, minute};
            if (found.IsOnScreen(due) || outcomes_.IsAnswered(due) || outcomes_.IsAsleep(due)) return;
            MissedReminder& missed = found.Add(due, 1);
            missed.isTimed = true;
            missed.text = event.DescShown();
            missed.source = source;
            if (event.ExecFile) missed.file = event.Filename;
        });
    });
}

const clsEvent* MissedReminders::EventOf(const OccurrenceRef& occurrence, EventSource* source) const {
    return OccurrenceEvents(events_, expired_, shared_).Find(occurrence, source);
}

}  // namespace kaz
