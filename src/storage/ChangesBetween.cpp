#include "storage/ChangesBetween.h"

#include "storage/EventDigest.h"

#include <string_view>
#include <unordered_map>

namespace kaz {

namespace {

bool IsAnother(const clsEvent& before, const clsEvent& after) {
    return EventDigest(before).words != EventDigest(after).words || before.Extras() != after.Extras() ||
           (!after.Recurring() && before.DueDate() != after.DueDate());
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

}  // namespace kaz
