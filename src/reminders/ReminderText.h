#pragma once

#include "base/Text.h"
#include "model/clsEvent.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kaz {

// The captions of the windows.
inline constexpr const char* kHeadingComingUp = "COMING UP";
inline constexpr const char* kHeadingToday = "TODAY!";
inline constexpr const char* kHeadingAlarm = "ALARM!";
inline constexpr const char* kHeadingMissed = "MISSED";

// The line of an event that comes up in `daysLeft` days (1 or more), as windows and hosts show it.
inline std::string UpcomingLine(std::int32_t daysLeft, std::string_view description) {
    std::string line = "In " + std::to_string(daysLeft) + (daysLeft == 1 ? " day: " : " days: ");
    return line.append(description);
}

// To whom the event's mail goes, "" when it has none.
inline std::string MailAddresses(const clsEvent& event) {
    return ReplaceAll(Trim(event.Email), std::string_view("\0", 1), "");
}

}  // namespace kaz
