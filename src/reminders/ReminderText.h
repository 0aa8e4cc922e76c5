#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kaz {

// The line of an event that comes up in `daysLeft` days (1 or more), as windows and hosts show it.
inline std::string UpcomingLine(std::int32_t daysLeft, std::string_view description) {
    std::string line = "In " + std::to_string(daysLeft) + (daysLeft == 1 ? " day: " : " days: ");
    return line.append(description);
}

}  // namespace kaz
