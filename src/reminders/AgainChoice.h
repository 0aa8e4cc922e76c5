#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// When a reminder comes again that the user puts off.
struct AgainChoice {
    enum class Kind { Minutes, WhenItStarts, TomorrowMorning, AtTime };
    Kind kind = Kind::Minutes;
    int minutes = 10;     // of a number of minutes, 1 to kLongest
    DateValue time = {};  // of day

    static constexpr int kLongest = 366 * 24 * 60;

    // As a caption says it: "in 10 minutes", "when it starts", "tomorrow at 9:00", "at 14:30".
    std::string Words() const;
    // The minute at which it comes; `start` is when the event begins, if it has a time. Nothing when that is
    // not to come.
    std::optional<DateValue> Until(DateValue now, std::optional<DateValue> start) const;

    // What a user types, or Words says: a number of minutes, "2 hours", "3 days", or a time of day.
    static std::optional<AgainChoice> Read(std::string_view typed, const LocaleData& locale);
    friend bool operator==(const AgainChoice&, const AgainChoice&) = default;
};

// Later on the same day: in two hours, yet before the night; in the night, soon.
DateValue LaterToday(DateValue now);

}  // namespace kaz
