#include "storage/EventReplay.h"

#include "platform/Clock.h"
#include "storage/EventDigest.h"
#include "storage/WholeTexts.h"

#include <utility>

namespace kaz {

EventReplay::Result EventReplay::Run(std::vector<ChangedEvent> changes) {
    for (Place& place : places_)
        place.database.CatchUp();
    for (Place& place : places_)
        LookAt(place);
    result_.done.reserve(changes.size());  // what is alive refers to them
    for (ChangedEvent& change : changes)
        Make(std::move(change));
    Save();
    return std::move(result_);
}

void EventReplay::LookAt(Place& place) {
    place.alive.clear();
    for (const clsEvent& event : place.database.AllEvents())
        if (!event.Deleted) place.alive.emplace(event.IDCode, &event);
}

// The days move a recurring event on by themselves, and what it skipped in the past is forgotten.
bool EventReplay::IsSame(const clsEvent& there, const clsEvent& expected) const {
    const std::int32_t today = stores_.platform.clock.Today().Day();
    const auto toCome = [&](EventExtras extras) {
        std::erase_if(extras.skipped, [&](std::int32_t day) { return day < today; });
        return extras;
    };
    if (toCome(there.Extras()) != toCome(expected.Extras())) return false;
    const EventDigest is(there);
    const EventDigest was(expected);
    const bool sameDay = there.DueDate() == expected.DueDate() && there.StartDate() == expected.StartDate();
    return is.words == was.words && HaveSameTexts(there, expected) && (there.Recurring() || sameDay);
}

// In its place, or where its day has taken it.
std::optional<EventReplay::Found> EventReplay::Find(const clsEvent& expected, bool expired) const {
    for (const bool place : {expired, !expired}) {
        const auto& alive = places_[place ? 1 : 0].alive;
        const auto there = alive.find(expected.IDCode);
        if (there != alive.end() && IsSame(*there->second, expected)) return Found{place, there->second};
    }
    return std::nullopt;
}

void EventReplay::Make(ChangedEvent change) {
    if (!change.before) {
        Put(std::move(change), nullptr);
        return;
    }
    const auto found = Find(*change.before, change.wasExpired);
    if (!found) {
        result_.left.push_back(*change.before);
        return;
    }
    const EventExtras expected = change.before->Extras();
    change.before = *found->event;
    change.wasExpired = found->expired;
    if (change.after) {
        // What was skipped since stays skipped, where the change is of something else.
        if (expected == change.after->Extras()) change.after->Extras(found->event->Extras());
        Put(std::move(change), &*found);
        return;
    }
    TakeAway(*found, false);
    result_.done.push_back(std::move(change));
}

// `found` is where the event is now, null when it is nowhere.
void EventReplay::Put(ChangedEvent change, const Found* found) {
    clsEvent& event = *change.after;
    Place& target = places_[change.isExpired ? 1 : 0];
    const bool stays = found && found->expired == change.isExpired;
    const auto there = target.alive.find(event.IDCode);
    const bool isTaken = there != target.alive.end() && !(stays && there->second == found->event);
    if (isTaken && !found && IsSame(*there->second, event)) return;  // it is there already
    const DateValue today = stores_.platform.clock.Today();
    if (!change.isExpired && event.Recurring() && event.DueDate() < today)
        event.CalcNextDueDate(today, stores_.log);
    event.CalcDaysLeft(today);
    event.Deleted = false;
    if (found && (!stays || isTaken || found->event->IDCode != event.IDCode)) TakeAway(*found, !stays);
    result_.done.push_back(std::move(change));
    clsEvent& placed = *result_.done.back().after;
    if (isTaken) {
        target.renamed.push_back(result_.done.size() - 1);
    } else {
        target.stored.push_back(placed);
        target.alive[placed.IDCode] = &placed;
    }
}

void EventReplay::TakeAway(const Found& found, bool moves) {
    Place& place = places_[found.expired ? 1 : 0];
    const std::string code = found.event->IDCode;
    if (moves)
        place.leaving.push_back(code);
    else
        place.stored.emplace_back(*found.event).Deleted = true;
    place.alive.erase(code);
}

void EventReplay::Save() {
    bool saved = true;
    for (Place& place : places_) {
        if (place.stored.empty() && place.renamed.empty()) continue;
        place.database.StoreRecords(std::move(place.stored));
        for (const std::size_t at : place.renamed) {
            clsEvent& event = *result_.done[at].after;
            place.database.StoreRecord(event, true);
            const std::string now = place.database.AllEvents().back().IDCode;
            result_.newCodes.emplace_back(std::exchange(event.IDCode, now), now);
        }
        saved = place.database.SaveDB() && saved;
    }
    // An event leaves a file only once it is safe in the other.
    for (Place& place : places_)
        if (saved && !place.leaving.empty()) place.database.DeleteRecords(place.leaving);
}

}  // namespace kaz
