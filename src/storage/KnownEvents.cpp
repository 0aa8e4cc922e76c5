#include "storage/KnownEvents.h"

#include "storage/ContentHash.h"

#include <algorithm>

namespace kaz {

KnownEvents::KnownEvents(const std::vector<clsEvent>& events) {
    entries_.reserve(events.size());
    for (const clsEvent& event : events)
        if (!event.Deleted) entries_.push_back({event.IDCode, EventDigest(event)});
}

const EventDigest* KnownEvents::Find(std::string_view code) const {
    const auto codeAt = [&](std::uint32_t place) { return std::string_view(entries_[place].code); };
    if (byCode_.size() != entries_.size()) {
        byCode_.resize(entries_.size());
        for (std::uint32_t place = 0; place < byCode_.size(); ++place)
            byCode_[place] = place;
        std::stable_sort(byCode_.begin(), byCode_.end(),
                         [&](std::uint32_t a, std::uint32_t b) { return codeAt(a) < codeAt(b); });
    }
    const auto found = std::lower_bound(
        byCode_.begin(), byCode_.end(), code,
        [&](std::uint32_t place, std::string_view wanted) { return codeAt(place) < wanted; });
    return found == byCode_.end() || codeAt(*found) != code ? nullptr : &entries_[*found].digest;
}

bool KnownEvents::AreAllOf(const EventCollection& events) const {
    if (allAtVersion_ != events.Version() && AreAllOf(events.All())) allAtVersion_ = events.Version();
    return allAtVersion_ == events.Version();
}

bool KnownEvents::AreAllOf(const std::vector<clsEvent>& events) const {
    std::size_t count = 0;
    bool inOrder = true;
    for (const clsEvent& event : events) {
        if (event.Deleted) continue;
        if (count >= entries_.size()) return false;
        const Entry& next = entries_[count++];
        const EventDigest digest(event);
        // One that was stored anew has moved to the end, and all behind its old place have moved up.
        inOrder = inOrder && next.code == event.IDCode;
        const EventDigest* known = inOrder ? &next.digest : Find(event.IDCode);
        if (!known || *known != digest) return false;
    }
    return count == entries_.size();
}

std::uint64_t KnownEvents::Print(const std::vector<clsEvent>& events) const {
    ContentHash print;
    for (const Entry& entry : entries_) {
        print.Add(entry.code);
        print.Add(entry.digest.words);
        print.Add(entry.digest.dates);
    }
    for (const clsEvent& event : events)
        if (!event.Deleted) print.Add(static_cast<std::uint32_t>(event.DaysLeft()));
    return print.Value();
}

}  // namespace kaz
