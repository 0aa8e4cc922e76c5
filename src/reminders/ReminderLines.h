#pragma once

#include "reminders/Outcomes.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What a reminder window says of one occurrence.
struct ReminderLine {
    std::string text;
    std::optional<OccurrenceRef> occurrence = {};  // none in a line that belongs to no event
    std::optional<DateValue> time = {};            // of day, of an event that has one
    bool breaksQuiet = false;                      // its window comes also while it is quiet
    bool tellsDay = false;                         // by its text, which needs none beside it
    friend bool operator==(const ReminderLine&, const ReminderLine&) = default;

    // When the event begins, if it has a time.
    std::optional<DateValue> Start() const {
        if (!occurrence || !time) return std::nullopt;
        return DateValue(occurrence->day.Day(), time->SecondOfDay());
    }
};

ReminderLine LineOf(const clsEvent& event, const OccurrenceRef& occurrence, std::string text);

// The lines of a reminder window, the nearest first.
class ReminderLines {
public:
    // The lines in the order in which they would come to stand when added one by one.
    void Add(const std::vector<ReminderLine>& added);
    void Clear() { lines_.clear(); }
    bool Empty() const { return lines_.empty(); }
    const std::vector<ReminderLine>& All() const { return lines_; }
    void Remove(const std::vector<ReminderLine>& lines) {
        std::erase_if(lines_, [&](const ReminderLine& line) {
            return std::find(lines.begin(), lines.end(), line) != lines.end();
        });
    }

    // The number that a line is ordered by: the days of "In 3 days: ...", else the digits that it starts
    // with, else 0. Numbers beyond 16 bits count as the nearest end.
    static std::int16_t NumberOf(std::string_view text);

private:
    std::vector<ReminderLine> lines_;
};

}  // namespace kaz
