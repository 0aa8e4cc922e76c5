#pragma once

#include "model/clsEvent.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace kaz {

// What tells the events of the side file apart: a code alone does not, since it is drawn again when its event
// has gone.
struct SideKey {
    std::string file;  // "Events" for the user's own ones, expired or not; "Shared_NAME" for another's
    std::string code;
    std::string check;  // of its text and rule, as CheckOf gives it

    friend auto operator<=>(const SideKey&, const SideKey&) = default;
};

inline constexpr std::string_view kOwnEvents = "Events";

// Eight hexadecimal digits that change with the text of the event or its rule, but for the dates that the
// program moves on.
std::string CheckOf(const clsEvent& event);

// One line of the side file: what, of which event, on which day, and how. Without an event it is of all of
// them.
struct SideLine {
    std::string verb;
    SideKey key;
    std::optional<DateValue> day;
    std::string argument;

    // Nothing for a line that is not of this form.
    static std::optional<SideLine> Parse(std::string_view text);
    std::string Text() const;
    friend auto operator<=>(const SideLine&, const SideLine&) = default;
};

// All lines of one verb about one event, to be looked for among others in their order.
struct SideGroup {
    std::string_view verb;
    const SideKey& key;

    friend bool operator<(const SideLine& line, const SideGroup& group) {
        return line.verb == group.verb ? line.key < group.key : line.verb < group.verb;
    }
    friend bool operator<(const SideGroup& group, const SideLine& line) {
        return group.verb == line.verb ? group.key < line.key : group.verb < line.verb;
    }
};

// In their order.
using SideLines = std::set<SideLine, std::less<>>;

// "2026-12-25", with a time "2026-12-25 18:30".
std::string SideDay(DateValue day);
std::string SideTime(DateValue time);
// Nothing for anything else.
std::optional<DateValue> SideMoment(std::string_view text);

}  // namespace kaz
