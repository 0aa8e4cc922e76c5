#include "storage/ChangesBetween.h"

#include "storage/EventDigest.h"
#include "storage/SideExtras.h"
#include "storage/WholeTexts.h"

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace kaz {

namespace {

bool IsAnother(const clsEvent& before, const clsEvent& after) {
    return EventDigest(before).words != EventDigest(after).words || before.Extras() != after.Extras() ||
           !HaveSameTexts(before, after) || (!after.Recurring() && before.DueDate() != after.DueDate());
}

// In whichever order they were entered.
bool SaysTheSame(const EventExtras& one, const EventExtras& other, clsEvent event) {
    if (one == other) return true;
    const auto linesOf = [&](const EventExtras& extras) {
        event.Extras(extras);
        std::vector<SideLine> lines = ExtraLines(event, kOwnEvents);
        return std::set(lines.begin(), lines.end());
    };
    return linesOf(one) == linesOf(other);
}

}  // namespace

std::vector<ChangedEvent> ChangesBetween(const std::vector<clsEvent>& before,
                                         const std::vector<clsEvent>& after, bool expired) {
    std::unordered_map<std::string_view, const clsEvent*> gone;
    gone.reserve(before.size());
    for (const clsEvent& event : before)
        if (!event.Deleted) gone.emplace(event.IDCode, &event);
    std::vector<ChangedEvent> changes;
    for (const clsEvent& event : after) {
        if (event.Deleted) continue;
        const auto known = gone.find(event.IDCode);
        if (known == gone.end())
            changes.push_back({{}, event, expired, expired});
        else if (IsAnother(*known->second, event))
            changes.push_back({*known->second, event, expired, expired});
        if (known != gone.end()) gone.erase(known);
    }
    for (const clsEvent& event : before)
        if (const auto left = gone.find(event.IDCode); left != gone.end() && left->second == &event)
            changes.push_back({event, {}, expired, expired});
    return changes;
}

std::vector<ChangedEvent> TakeChangedExtras(clsDbXml& database, bool expired) {
    std::unordered_map<std::string, EventExtras> before;
    for (const clsEvent& event : database.AllEvents())
        if (!event.Extras().Empty()) before.emplace(event.IDCode, event.Extras());
    database.TakeExtras();
    std::vector<ChangedEvent> changes;
    for (const clsEvent& event : database.AllEvents()) {
        if (event.Deleted || (before.empty() && event.Extras().Empty())) continue;
        const auto known = before.find(event.IDCode);
        const EventExtras had = known == before.end() ? EventExtras() : known->second;
        if (SaysTheSame(had, event.Extras(), event)) continue;
        clsEvent old = event;
        old.Extras(had);
        changes.push_back({std::move(old), event, expired, expired});
    }
    return changes;
}

}  // namespace kaz
