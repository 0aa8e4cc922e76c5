#pragma once

#include "model/clsEvent.h"

#include <cstdint>

namespace kaz {

// What of an event stands in its file, as two numbers. Its code is no part of it, and DaysLeft neither, which
// every day makes anew.
struct EventDigest {
    explicit EventDigest(const clsEvent& event);

    std::uint64_t words;  // what a user enters
    std::uint64_t dates;  // what the days make of it

    friend bool operator==(const EventDigest&, const EventDigest&) = default;
};

}  // namespace kaz
