#include "reminders/OccurrenceEvents.h"

#include <algorithm>
#include <functional>

namespace kaz {

namespace {
constexpr int kFewLookups = 8;
}

const clsEvent* OccurrenceEvents::FindWithCode(Place& place, const SideKey& key) const {
    if (!place.database) return nullptr;
    const std::vector<clsEvent>& all = place.database->AllEvents();
    const auto fits = [&](const clsEvent& event) {
        return !event.Deleted && event.IDCode == key.code && CheckOf(event) == key.check &&
               (key.file == kOwnEvents || KeyOf(*place.database, event).file == key.file);
    };
    if (lookups_ <= kFewLookups) {
        const auto found = std::ranges::find_if(all, fits);
        return found == all.end() ? nullptr : &*found;
    }
    if (place.byCode.empty()) {
        place.byCode.reserve(all.size());
        for (const clsEvent& event : all)
            place.byCode.push_back(&event);
        std::ranges::stable_sort(place.byCode, {}, &clsEvent::IDCode);
    }
    auto found = std::ranges::lower_bound(place.byCode, key.code, {}, &clsEvent::IDCode);
    while (found != place.byCode.end() && (*found)->IDCode == key.code && !fits(**found))
        ++found;
    return found != place.byCode.end() && (*found)->IDCode == key.code ? *found : nullptr;
}

const clsEvent* OccurrenceEvents::FindExpiredOn(const OccurrenceRef& occurrence) {
    if (!expired_.database) return nullptr;
    const std::vector<clsEvent>& all = expired_.database->AllEvents();
    if (lookups_ <= kFewLookups) {
        const auto found = std::ranges::find_if(all, [&](const clsEvent& event) {
            return !event.Deleted && event.DueDate() == occurrence.day &&
                   CheckOf(event) == occurrence.key.check;
        });
        return found == all.end() ? nullptr : &*found;
    }
    if (expiredByDay_.empty())
        for (const clsEvent& event : all)
            if (!event.Deleted) expiredByDay_.try_emplace({event.DueDate(), CheckOf(event)}, &event);
    const auto found = expiredByDay_.find({occurrence.day, occurrence.key.check});
    return found == expiredByDay_.end() ? nullptr : found->second;
}

const clsEvent* OccurrenceEvents::Find(const OccurrenceRef& occurrence, EventSource* source) {
    ++lookups_;
    const auto foundIn = [&](EventSource place, const clsEvent* event) {
        if (event && source) *source = place;
        return event;
    };
    const SideKey& key = occurrence.key;
    if (key.file != kOwnEvents) return foundIn(EventSource::Shared, FindWithCode(shared_, key));
    if (const clsEvent* event = FindWithCode(events_, key)) return foundIn(EventSource::Local, event);
    if (const clsEvent* event = FindWithCode(expired_, key)) return foundIn(EventSource::Expired, event);
    // It got another code when it expired.
    return foundIn(EventSource::Expired, FindExpiredOn(occurrence));
}

}  // namespace kaz
