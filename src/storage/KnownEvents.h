#pragma once

#include "storage/EventCollection.h"
#include "storage/EventDigest.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What a file is known to hold, each event as its code and its digest.
class KnownEvents {
public:
    struct Entry {
        std::string code;
        EventDigest digest;
        friend bool operator==(const Entry&, const Entry&) = default;
    };

    KnownEvents() = default;
    // Without the events that are marked deleted, since these are never written.
    explicit KnownEvents(const std::vector<clsEvent>& events);

    const std::vector<Entry>& Entries() const { return entries_; }
    // Null when there is no event with that code.
    const EventDigest* Find(std::string_view code) const;
    // Whether these are the events, in whatever order.
    bool AreAllOf(const std::vector<clsEvent>& events) const;
    // Once for each version of a collection, which each tick asks for.
    bool AreAllOf(const EventCollection& events) const;
    // Of these, when they are those that it was made of: changes with whatever
    // changes the text of their file.
    std::uint64_t Print(const std::vector<clsEvent>& events) const;

private:
    std::vector<Entry> entries_;
    mutable std::vector<std::uint32_t> byCode_;  // made for the first search
    mutable std::uint64_t allAtVersion_ = 0;
};

}  // namespace kaz
