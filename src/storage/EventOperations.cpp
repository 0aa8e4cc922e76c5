#include "storage/EventOperations.h"

#include "model/Occurrences.h"
#include "platform/Clock.h"
#include "storage/EventDigest.h"
#include "storage/VisibleEvents.h"
#include "storage/WholeTexts.h"
#include "storage/clsLayers.h"

#include <string_view>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

clsEvent SharedLike(clsEvent event, const clsEvent& other) {
    event.ShareLike(other);
    return event;
}

// One day on.
clsEvent Pushed(clsEvent event) {
    event.DueDate(event.DueDate().PlusDays(1));
    // It happens there, though the day was skipped before, or is behind the end of the series.
    EventExtras extras = event.Extras();
    extras.Unskip(event.DueDate());
    if (extras.EndsBefore(event.DueDate())) extras.lastDay = event.DueDate();
    event.Extras(extras);
    return event;
}

}  // namespace

std::string EventOperations::AddEvent(clsEvent event) {
    CatchUp();
    events_.StoreRecord(Updated(std::move(event)), true);
    changes_.push_back({{}, events_.AllEvents().back()});
    std::string code = changes_.back().after->IDCode;
    events_.SaveDB();
    return code;
}

EditResult EventOperations::EditEvent(const EventEdit& edit, bool keepWhenGone) {
    CatchUp();
    const std::string& code = edit.before.IDCode;
    // Its day may have passed while the dialog was open.
    const bool fromExpired = edit.fromExpired || HasExpired(edit.before);
    const clsEvent* still = Source(fromExpired).ReadEvent(code);
    clsEvent copy = edit.after;
    // A change of sharing alone moves no date, neither on nor back, and must not make a mail go out again.
    if (edit.mode == EditMode::Whole)
        copy = Updated(std::move(copy));
    else if (still && !still->Deleted)
        copy = SharedLike(*still, copy);
    // A deleted event stays in memory with its mark until the file is read again.
    const bool isGone = !still || (still->Deleted && !copy.Deleted);
    if (isGone && !keepWhenGone) return EditResult::Gone;
    if (isGone) copy.IDCode.clear();
    const bool isChanged = !isGone && (EventDigest(*still).words != EventDigest(edit.before).words ||
                                       !HaveSameTexts(*still, edit.before));
    if (isChanged && edit.mode == EditMode::Whole) Source(fromExpired).KeepReplaced(*still);
    copy.Deleted = false;
    const clsEvent stored = still ? *still : copy;
    StoreBack(std::move(copy), stored, fromExpired && !isGone);
    if (isGone) changes_.back().before.reset();
    return EditResult::Stored;
}

void EventOperations::PushEvent(const std::string& code, bool fromExpired) {
    CatchUp();
    const clsEvent* found = Source(fromExpired).ReadEvent(code);
    if (!found) {
        stores_.log.LogEvent("Unable to push event with ID " + code + ". Not found in database.");
        return;
    }
    const clsEvent before = *found;
    StoreBack(Pushed(before), before, fromExpired);
    // Kept on purpose: the expired database is saved in every case, also when nothing leaves it.
    expired_.SaveDB();
}

void EventOperations::PushEvents(const std::vector<std::string>& codes) {
    CatchUp();
    std::vector<clsEvent> pushed;
    for (const clsEvent* event : Find(events_, codes)) {
        if (event->Deleted) continue;
        pushed.push_back(Pushed(*event));
        changes_.push_back({*event, pushed.back()});
    }
    if (pushed.empty()) return;
    events_.StoreRecords(std::move(pushed));
    events_.SaveDB();
}

bool EventOperations::SkipDay(const std::string& code, DateValue day) {
    CatchUp();
    const clsEvent* found = events_.ReadEvent(code);
    if (!FallsOn(found, day)) return false;
    const DateValue today = stores_.platform.clock.Today();
    const clsEvent before = *found;
    clsEvent copy = before;
    EventExtras extras = copy.Extras();
    extras.Skip(day);
    copy.Extras(extras);
    if (copy.DueDate() == day) copy.CalcNextAfterDate(day, today, stores_.log);
    copy.CalcDaysLeft(today);
    if (copy.DueDate() == day && copy.IsOver(day, today))
        Retire(std::move(copy), before);
    else
        StoreBack(std::move(copy), before, false);
    return true;
}

std::optional<std::string> EventOperations::MoveDay(const std::string& code, DateValue day, DateValue to) {
    CatchUp();
    const clsEvent* found = events_.ReadEvent(code);
    if (!FallsOn(found, day)) return std::nullopt;
    clsEvent single = *found;
    single.IDCode.clear();
    single.Recurring(false);
    // The kind that names one day of one year, however far away.
    single.RecurrenceType(RecurEveryNDays);
    single.Period(1);
    single.StartDate(to);
    EventExtras extras = single.Extras();
    extras.skipped.clear();
    extras.lastDay.reset();
    extras.times = 0;
    single.Extras(extras);
    // Saved before the other day is left out: a crash in between tells of it twice, and never not at all.
    const std::string added = AddEvent(std::move(single));
    SkipDay(code, day);
    return added;
}

bool EventOperations::FallsOn(const clsEvent* event, DateValue day) const {
    const DateValue today = stores_.platform.clock.Today();
    return event && !event->Deleted && event->Recurring() && day >= today &&
           !Occurrences(*event, {day, day}, today).Empty();
}

void EventOperations::Retire(clsEvent event, const clsEvent& before) {
    const clsEvent* there = expired_.ReadEvent(event.IDCode);
    const bool isTaken = there && !there->Deleted && there->Desc() != event.Desc();
    events_.StoreRecord(event);
    expired_.StoreRecord(std::move(event), isTaken);
    changes_.push_back({before, expired_.AllEvents().back(), false, true});
    // An event leaves its file only once it is safe in the other.
    if (expired_.SaveDB())
        events_.DeleteRecord(before.IDCode);
    else
        events_.SaveDB();
}

std::vector<clsEvent> EventOperations::DeleteEvents(const std::vector<std::string>& codes) {
    std::vector<clsEvent> others;
    std::vector<std::string> own;
    for (const clsEvent* event : Find(events_, codes)) {
        if (IsOthers(*event)) {
            others.push_back(*event);
            continue;
        }
        own.push_back(event->IDCode);
        NoteDeletion(*event, false);
    }
    if (!own.empty()) events_.DeleteRecords(own);
    return others;
}

void EventOperations::DeleteExpiredEvents(const std::vector<std::string>& codes) {
    const std::vector<const clsEvent*> found = Find(expired_, codes);
    for (const clsEvent* event : found)
        NoteDeletion(*event, true);
    if (!found.empty()) expired_.DeleteRecords(codes);
}

void EventOperations::ShareLike(const std::vector<std::string>& codes, const clsEvent& model) {
    std::vector<clsEvent> shared;
    for (const clsEvent* event : Find(events_, codes)) {
        if (event->Deleted || IsOthers(*event)) continue;
        shared.push_back(SharedLike(*event, model));
        changes_.push_back({*event, shared.back()});
    }
    if (shared.empty()) return;
    events_.StoreRecords(std::move(shared));
    events_.SaveDB();
}

void EventOperations::NoteDeletion(const clsEvent& event, bool expired) {
    if (!event.Deleted) changes_.push_back({event, {}, expired, false});
}

// In one walk, however many they are. Of two events with the same code the first is meant.
std::vector<const clsEvent*> EventOperations::Find(const clsDbXml& database,
                                                   const std::vector<std::string>& codes) {
    std::unordered_set<std::string_view> wanted(codes.begin(), codes.end());
    std::vector<const clsEvent*> found;
    for (const clsEvent& event : database.AllEvents())
        if (wanted.erase(event.IDCode) > 0) found.push_back(&event);
    return found;
}

bool EventOperations::IsOthers(const clsEvent& event) const {
    return VisibleEvents(stores_.settings).IsForeign(event);
}

bool EventOperations::HasExpired(const clsEvent& event) {
    const clsEvent* current = events_.ReadEvent(event.IDCode);
    if (current && !current->Deleted) return false;
    const clsEvent* expired = expired_.ReadEvent(event.IDCode);
    return expired && !expired->Deleted && expired->Desc() == event.Desc() &&
           expired->DueDate() == event.DueDate() && expired->Owner() == event.Owner();
}

void EventOperations::CatchUp() {
    events_.CatchUp();
    expired_.CatchUp();
}

clsEvent EventOperations::Updated(clsEvent event) {
    const DateValue today = stores_.platform.clock.Today();
    event.CalcNextDueDate(today, stores_.log);
    event.CalcDaysLeft(today);
    event.Layer(clsLayers::OwnOr(event.Layer()));
    return event;
}

void EventOperations::StoreBack(clsEvent event, const clsEvent& before, bool fromExpired) {
    const std::string code = event.IDCode;
    const auto holder = [&](clsDbXml& database) {
        const clsEvent* found = database.ReadEvent(code);
        return found && !found->Deleted ? found : nullptr;
    };
    // A crash between two saves leaves one event in both files.
    const auto isSame = [&](const clsEvent& other) {
        return other.Desc() == before.Desc() && other.DueDate() == before.DueDate();
    };
    const clsEvent* current = fromExpired ? holder(events_) : nullptr;
    events_.StoreRecord(std::move(event), current && !isSame(*current));
    changes_.push_back({before, events_.AllEvents().back(), fromExpired, false});
    if (!events_.SaveDB()) return;
    // An event leaves the expired file only once it is safe in the other.
    const clsEvent* expired = holder(expired_);
    if (expired && isSame(*expired)) expired_.DeleteRecord(code);
}

}  // namespace kaz
