#include "reminders/clsReminder.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "model/AlarmTime.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/MessagePump.h"
#include "reminders/AlarmFiles.h"
#include "reminders/ReminderText.h"
#include "storage/ChangeJournal.h"
#include "storage/clsDbXml.h"
#include "support/Names.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

// Puts the events that one pass retires into the expired database, in memory.
class ExpiredShelf {
public:
    explicit ExpiredShelf(clsDbXml* expired) : expired_(expired) {}

    // The event keeps its code, unless another expired event has it already. One that is there from an
    // earlier attempt takes its own place. Throws InternalError without a database.
    void Add(const clsEvent& event);

private:
    bool IsAnother(const clsEvent& event) const;
    void ReadCodes();

    clsDbXml* expired_;
    bool codesRead_ = false;
    std::unordered_set<std::string> codes_;
};

void ExpiredShelf::Add(const clsEvent& event) {
    if (!expired_) throw RuntimeError(ErrorNumber::InternalError);
    if (!codesRead_) ReadCodes();
    expired_->StoreRecord(event, IsAnother(event));
    codes_.insert(expired_->AllEvents().back().IDCode);
}

// Looked for only when the code is in use: a long absence retires thousands of events in one pass.
bool ExpiredShelf::IsAnother(const clsEvent& event) const {
    const clsEvent* there = codes_.contains(event.IDCode) ? expired_->ReadEvent(event.IDCode) : nullptr;
    return there && !there->Deleted && (there->Desc() != event.Desc() || there->DueDate() != event.DueDate());
}

void ExpiredShelf::ReadCodes() {
    for (const clsEvent& event : expired_->AllEvents())
        codes_.insert(event.IDCode);
    codesRead_ = true;
}

std::vector<std::string> TextsOf(const std::vector<ReminderLine>& lines) {
    std::vector<std::string> texts;
    texts.reserve(lines.size());
    for (const ReminderLine& line : lines)
        texts.push_back(line.text);
    return texts;
}

// A due date that is skipped, or behind the end of its series, where a program that knows of neither has
// moved the event on to it.
bool IsLeftOut(const clsEvent& event) {
    const EventExtras& extras = event.Extras();
    return event.Recurring() && (extras.Skips(event.DueDate()) || extras.EndsBefore(event.DueDate()));
}

// The most minutes after which a file is still run: those by which a clock is put forward in spring. Much
// later it would do its work where nobody expects it any more.
constexpr int kLatestRun = 60;

// Each pass takes at least half of those that wait, so these leave none out of any database.
constexpr int kAllPasses = 32;

// The first minute that rings: this one, or the first that the pass before has not seen. After a clock was
// set back it is this one.
DateValue FirstMinute(std::optional<DateValue> lastPass, DateValue now) {
    if (!lastPass || lastPass->ToMinute() >= now) return now;
    return std::max(lastPass->ToMinute().PlusMinutes(1), now.PlusDays(-1));
}

}  // namespace

bool clsReminder::IsExpired(DateValue dueDate, std::optional<DateValue> asOf) const {
    return dueDate < asOf.value_or(stores_.platform.clock.Today());
}

void clsReminder::UpdateAllEvents() { Update(1); }

void clsReminder::Update(int passes) {
    if (!events_) return;
    ErrorTrap trap(stores_.log, "UpdateAllEvents", kModule);
    const DateValue today = stores_.platform.clock.Today();
    // What another program has saved is not to be moved on as it was before.
    for (clsDbXml* database : {events_, expired_})
        if (database) trap([&] { database->CatchUp(); });
    const std::set<OccurrenceRef> onScreen = windows_.Ringing();
    ExpiredShelf shelf(expired_);
    std::vector<std::size_t> retired;
    std::vector<ChangedEvent> moved;
    std::vector<std::string> lines;

    const auto examine = [&](clsEvent& event, std::size_t position) {
        if (event.Deleted) return;
        event.CalcDaysLeft(today);
        const bool expired = IsExpired(event.DueDate(), today);
        if (!expired && !IsLeftOut(event)) return;
        const std::string what =
            GeneralDateText(event.DueDate(), stores_.platform.locale.Data()) + " " + event.Desc();
        if (expired) MissedReminders::NotePassed(windows_.Told(), event, today, onScreen);
        const DateValue from = std::max(today, event.DueDate());
        if (event.Recurring() && !event.IsOver(from, today)) {
            lines.push_back("Event expired and updated: " + what);
            event.CalcNextAfterDate(from, today, stores_.log);
            event.CalcDaysLeft(today);
        } else {
            lines.push_back("Event expired and deleted: " + what);
            shelf.Add(event);
            retired.push_back(position);
            moved.push_back({event, expired_->AllEvents().back(), false, true});
        }
    };
    // The passes come before the one saving of both files, and later ones only to what was left out.
    events_->ChangeEvents([&](std::vector<clsEvent>& events) {
        std::vector<std::size_t> places(events.size());
        std::iota(places.begin(), places.end(), std::size_t{0});
        std::vector<bool> examined(events.size());
        for (bool removed = true; removed && passes > 0; --passes) {
            const std::vector<std::size_t> before = std::exchange(places, {});
            for (std::size_t place = 0; place < before.size(); ++place) {
                const std::size_t position = before[place];
                const std::size_t count = retired.size();
                if (!examined[position]) trap([&] { examine(events[position], position); });
                examined[position] = true;
                if (retired.size() == count) {
                    places.push_back(position);
                    continue;
                }
                // Kept on purpose: the place advances also after a removal, so the event that moves up into
                // the place of a removed one waits for the next pass.
                if (++place < before.size()) places.push_back(before[place]);
            }
            removed = places.size() < before.size();
        }
    });
    stores_.log.LogEvents(lines);

    // Behind a crash something may be told of twice, but nothing not at all.
    trap([&] { windows_.Told().Save(); });
    trap([&] {
        // First the file that receives the events: a crash in between leaves them
        // in both files, never in none.
        if (!expired_ || expired_->SaveDB()) {
            RemoveRetired(retired);
            if (stores_.journal) stores_.journal->Write(kApplicationName, "expiry", moved);
        } else if (!retired.empty()) {
            stores_.log.LogEvent("Expired events could not be saved and stay with the others");
        }
    });
    trap([&] { events_->SaveDB(); });
}

void clsReminder::RemoveRetired(std::vector<std::size_t> positions) {
    if (positions.empty()) return;
    std::sort(positions.begin(), positions.end());
    events_->ChangeEvents([&](std::vector<clsEvent>& events) {
        std::size_t kept = positions.front();
        auto next = positions.begin();
        for (std::size_t position = kept; position < events.size(); ++position) {
            if (next != positions.end() && *next == position)
                ++next;
            else
                events[kept++] = std::move(events[position]);
        }
        events.resize(kept);
    });
}

void clsReminder::DisplayReminders() {
    Update(kAllPasses);
    ErrorTrap trap(stores_.log, "DisplayReminders", kModule);
    ReminderDay today(visible_, stores_.platform.clock.Today());
    trap([&] { today.AddReminders(events_); });
    trap([&] { ShowUpcoming(today); });
    trap([&] { ShowTodays(today); });
    trap([&] { stores_.platform.pump.ProcessPending(); });
}

bool clsReminder::ShowAgain() {
    windows_.ForgetShown();
    DisplayReminders();
    return windows_.ShowNow();
}

void clsReminder::ShowUpcoming(const ReminderDay& today) {
    const std::vector<ReminderLine> lines = today.UpcomingLines();
    if (lines.empty()) {
        windows_.Close(ReminderKind::ComingUp);
        return;
    }
    stores_.log.LogEvent("Showing upcoming reminders");
    if (windows_.HasShown(ReminderKind::ComingUp, today.Day(), TextsOf(lines))) return;
    Show(ReminderKind::ComingUp, today, lines, "");
}

void clsReminder::ShowTodays(const ReminderDay& today) {
    const std::vector<ReminderLine> lines = today.TodaysLines();
    std::string sound;
    for (const clsEvent* event : today.Todays())
        if (event->PlayWav && !event->WavFile.empty()) sound = event->WavFile;
    if (lines.empty()) {
        windows_.Close(ReminderKind::Today);
        return;
    }
    stores_.log.LogEvent("Showing today's reminders");
    if (windows_.HasShown(ReminderKind::Today, today.Day(), TextsOf(lines))) return;
    Show(ReminderKind::Today, today, lines, sound);
}

void clsReminder::Show(ReminderKind kind, const ReminderDay& today, const std::vector<ReminderLine>& lines,
                       const std::string& sound) {
    const std::vector<ReminderLine> left = windows_.WithoutLeft(kind, stores_.platform.clock.Now(), lines);
    if (left.empty()) {
        windows_.Close(kind);
    } else {
        frmReminder& window = windows_.Open(kind);
        window.PlaySound = !sound.empty();
        window.SoundFile = sound;
        window.ReplaceList(left);
        window.Wake();
        window.Heading(kind == ReminderKind::Today ? kHeadingToday : kHeadingComingUp);
    }
    windows_.SetShown(kind, today.Day(), TextsOf(lines));
}

void clsReminder::DisplayAlarms(const clsDbXml& database, std::optional<DateValue> lastPass) {
    ErrorTrap trap(stores_.log, "DisplayAlarms", kModule);
    const DateValue now = stores_.platform.clock.Now().ToMinute();
    const DateValue since = FirstMinute(lastPass, now);
    const bool ofOthers = PlaceOf(database) == EventSource::Shared;
    Outcomes& told = windows_.Told();
    const std::set<OccurrenceRef> onScreen = windows_.Ringing();
    std::vector<ReminderLine> lines;
    std::vector<AlarmRinging> listed;
    std::vector<clsEvent> toRun;
    std::string sound;

    trap([&] {
        visible_.ForEach(&database, PlaceOf(database), [&](const VisibleEvent& seen) {
            const clsEvent& event = seen.event;
            const auto list = [&](const OccurrenceRef& of) {
                lines.push_back(LineOf(event, of, std::string(event.DescShown())));
                // A sound of somebody else's choice would be looked for on his computer.
                if (!ofOthers && event.PlayWav && !event.WavFile.empty()) sound = event.WavFile;
            };
            if (!event.Extras().warnings.empty() && !event.ExecFile)
                for (const DayWarning& warning : WarningsAt(event, now)) {
                    const OccurrenceRef of{KeyOf(database, event), warning.day, warning.minute};
                    if (!onScreen.contains(of) && !told.IsAnswered(of) && !told.IsAsleep(of)) list(of);
                }
            const std::optional<DateValue> minute = LastAlarm(event, since, now);
            if (!minute) return;
            const AlarmRinging ringing{&database, database.SourceOf(event), event.Owner(), event.IDCode,
                                       *minute};
            if (windows_.HasRung(ringing)) return;
            const OccurrenceRef of{KeyOf(database, event), DayOfAlarm(event, *minute), *minute};
            // Closed by a person, perhaps at another computer, or to come at another time.
            if (told.IsAnswered(of) || told.IsAsleep(of)) return;
            if (event.ExecFile) {
                windows_.SetRung(ringing);
                if (*minute >= now.PlusMinutes(-kLatestRun)) {
                    toRun.push_back(event);
                    told.NoteAnswered(of);
                } else {
                    stores_.log.LogEvent("Not running " + event.Filename + " - its time has passed");
                }
            } else {
                list(of);
                listed.push_back(ringing);
            }
        });
    });

    if (!lines.empty())
        trap([&] {
            Ring(lines, sound);
            for (const AlarmRinging& ringing : listed)
                windows_.SetRung(ringing);
        });

    AlarmFiles files(stores_, windows_, saveSettings_);
    for (const clsEvent& event : toRun) {
        const std::string source = database.SourceOf(event);
        // Without a source it is a copy of what this user shares, and the original has run.
        if (!ofOthers || !source.empty()) files.Run(event, ofOthers ? source : "");
    }
    if (!toRun.empty()) told.Save();
}

// An alarm stays until the user closes it, and then it is over: a later pass adds what is new, and neither
// empties nor hides the window, nor brings back what was closed.
void clsReminder::Ring(const std::vector<ReminderLine>& lines, const std::string& sound) {
    frmReminder& window = windows_.Open(ReminderKind::Alarm);
    window.AddToList(lines);
    window.HasRung = true;
    window.PlaySound = true;
    window.SoundFile = sound;
    window.Heading(kHeadingAlarm);
    window.ShowOnTop();
}

void clsReminder::DisplayWoken(const MissedReminders& all) {
    ErrorTrap trap(stores_.log, "DisplayWoken", kModule);
    const DateValue now = stores_.platform.clock.Now().ToMinute();
    const std::set<OccurrenceRef> onScreen = windows_.Ringing();
    std::vector<ReminderLine> lines;
    std::string sound;
    trap([&] {
        for (const auto& [occurrence, until] : windows_.Told().AllAsleep()) {
            if (until > now || onScreen.contains(occurrence)) continue;
            const clsEvent* event = all.EventOf(occurrence);
            if (!event) continue;
            lines.push_back(LineOf(*event, occurrence, std::string(event->DescShown())));
            const bool isOwn = occurrence.key.file == kOwnEvents;
            if (isOwn && event->PlayWav && !event->WavFile.empty()) sound = event->WavFile;
        }
        if (!lines.empty()) Ring(lines, sound);
    });
}

std::optional<DateValue> clsReminder::NextAlarm(const clsDbXml& database) const {
    const DateValue now = stores_.platform.clock.Now().ToMinute();
    const DateValue first(now.Day(), now.SecondOfDay() + 60);
    const DateValue last(now.Day(), DateValue::kSecondsPerDay - 60);
    std::optional<DateValue> next;
    const auto consider = [&](DateValue minute) { next = next ? std::min(*next, minute) : minute; };
    visible_.ForEach(&database, PlaceOf(database), [&](const VisibleEvent& seen) {
        if (const auto minute = LastAlarm(seen.event, first, last)) consider(*minute);
        if (!seen.event.Extras().warnings.empty())
            for (const DayWarning& warning : WarningsBetween(seen.event, first, last))
                consider(warning.minute);
    });
    for (const Outcomes::Asleep& asleep : windows_.Told().AllAsleep())
        if (first <= asleep.until && asleep.until <= last) consider(asleep.until);
    return next;
}

}  // namespace kaz
