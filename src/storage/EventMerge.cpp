#include "storage/EventMerge.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kaz {

namespace {

// Two programs that put the same event back and away in turns come to an end.
constexpr int kMostTimesAgain = 5;

}  // namespace

EventMerge::Result EventMerge::Run(std::vector<clsEvent> file, const std::vector<clsEvent>& here,
                                   Memory& memory) {
    EventMerge merge(std::move(file), memory);
    // Mostly nothing has changed here.
    const bool isKnown = memory.former.empty() && memory.saved.Entries() == memory.confirmed.Entries() &&
                         memory.saved.AreAllOf(here);
    for (const clsEvent& event : here) {
        if (event.Deleted) continue;
        if (!isKnown)
            merge.Place(event);
        else if (!merge.inFile_.contains(event.IDCode))
            merge.result_.gone.push_back(event);
    }
    if (!isKnown) merge.DeleteAgain();
    merge.ForgetMoved();
    std::vector<clsEvent>& events = merge.result_.events;
    std::move(merge.added_.begin(), merge.added_.end(), std::back_inserter(events));
    return std::move(merge.result_);
}

EventMerge::EventMerge(std::vector<clsEvent> file, Memory& memory)
    : memory_(memory),
      againBefore_(std::exchange(memory.again, {})) {
    result_.events = std::move(file);
    inFile_.reserve(result_.events.size());
    for (std::size_t place = 0; place < result_.events.size(); ++place)
        inFile_.emplace(result_.events[place].IDCode, place);
}

void EventMerge::Place(const clsEvent& event) {
    if (!alive_.insert(event.IDCode).second) {
        result_.newCodes.push_back(event);
        return;
    }
    const EventDigest* known = memory_.confirmed.Find(event.IDCode);
    const bool isThere = inFile_.contains(event.IDCode);
    if (known && *known == EventDigest(event) && IsSaved(event)) {
        if (!isThere) result_.gone.push_back(event);
    } else if (isThere) {
        PlaceChanged(event);
    } else {
        PlaceMissing(event);
    }
}

// Changed here, and in the file in whatever version.
void EventMerge::PlaceChanged(const clsEvent& event) {
    clsEvent& theirs = result_.events[inFile_[event.IDCode]];
    const EventDigest* known = memory_.confirmed.Find(event.IDCode);
    const EventDigest ours(event);
    const EventDigest found(theirs);
    const bool saved = IsSaved(event);
    if (found == ours) return;
    if (WasOurs(event.IDCode, found)) {
        if (!saved || MayTryAgain(event.IDCode))
            TakePlaceOf(theirs, event);
        else
            result_.yielded.push_back(event);
    } else if (!known && !memory_.saved.Find(event.IDCode)) {
        result_.newCodes.push_back(event);
    } else if (saved) {
        // Theirs came later; unless two machines have given one code to two new events.
        if (known || event.Desc() == theirs.Desc())
            result_.yielded.push_back(event);
        else
            result_.newCodes.push_back(event);
    } else if (!known || ours.words != known->words || found.words == known->words) {
        TakePlaceOf(theirs, event);
        result_.hidesTheirs = true;
    }
    // Else only the days have moved ours, and will move theirs as well.
}

// Added or changed here, and not in the file.
void EventMerge::PlaceMissing(const clsEvent& event) {
    if (!IsSaved(event) || MayTryAgain(event.IDCode))
        added_.push_back(event);
    else
        result_.gone.push_back(event);
}

// What was deleted here, unless somebody else has changed it since.
void EventMerge::DeleteAgain() {
    std::unordered_set<std::string_view> codes;
    for (const KnownEvents* known : {&memory_.confirmed, &memory_.saved})
        for (const KnownEvents::Entry& entry : known->Entries())
            if (!alive_.contains(entry.code) && inFile_.contains(entry.code)) codes.insert(entry.code);
    for (const auto& [code, digest] : memory_.former)
        if (!alive_.contains(code) && inFile_.contains(code)) codes.insert(code);

    std::vector<bool> deleted(result_.events.size());
    for (const std::string_view view : codes) {
        const std::string code(view);
        const std::size_t place = inFile_[view];
        const bool saved = memory_.saved.Find(code) == nullptr;
        deleted[place] = WasOurs(code, EventDigest(result_.events[place])) && (!saved || MayTryAgain(code));
    }
    std::size_t place = 0;
    std::erase_if(result_.events, [&](const clsEvent&) { return deleted[place++]; });
    inFile_.clear();
}

// Whether this is a version that was here before.
bool EventMerge::WasOurs(const std::string& code, const EventDigest& found) const {
    for (const KnownEvents* known : {&memory_.confirmed, &memory_.saved})
        if (const EventDigest* digest = known->Find(code); digest && *digest == found) return true;
    const auto [first, last] = memory_.former.equal_range(code);
    return std::any_of(first, last, [&](const auto& entry) { return entry.second == found; });
}

bool EventMerge::IsSaved(const clsEvent& event) const {
    const EventDigest* saved = memory_.saved.Find(event.IDCode);
    return saved && *saved == EventDigest(event);
}

bool EventMerge::MayTryAgain(const std::string& code) {
    const auto before = againBefore_.find(code);
    const int times = before == againBefore_.end() ? 1 : before->second + 1;
    if (times > kMostTimesAgain) return false;
    memory_.again[code] = times;
    return true;
}

void EventMerge::TakePlaceOf(clsEvent& theirs, const clsEvent& ours) {
    // The code that stands in the index is that of the place.
    std::string code = std::move(theirs.IDCode);
    theirs = ours;
    theirs.IDCode = std::move(code);
}

// An event that is there under another code has not gone.
void EventMerge::ForgetMoved() {
    if (result_.gone.empty()) return;
    std::unordered_set<std::uint64_t> there;
    for (const clsEvent& event : result_.events)
        there.insert(EventDigest(event).words);
    std::erase_if(result_.gone,
                  [&](const clsEvent& event) { return there.contains(EventDigest(event).words); });
}

}  // namespace kaz
