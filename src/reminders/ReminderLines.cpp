#include "reminders/ReminderLines.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kaz {

ReminderLine LineOf(const clsEvent& event, const OccurrenceRef& occurrence, std::string text) {
    return {std::move(text), occurrence,
            event.AlarmSet() ? std::optional(event.DueTime().TimeOnly()) : std::nullopt,
            event.Extras().always};
}

void ReminderLines::Add(const std::vector<ReminderLine>& added) {
    // Kept on purpose: a line goes before the first one whose number is not smaller, so among
    // equals the last added comes first. For many lines at once that is the newest first,
    // then ordered without disturbing equals.
    std::vector<ReminderLine> all(added.rbegin(), added.rend());
    std::move(lines_.begin(), lines_.end(), std::back_inserter(all));
    std::vector<std::pair<std::int16_t, std::size_t>> order;
    order.reserve(all.size());
    for (const ReminderLine& line : all)
        order.emplace_back(NumberOf(line.text), order.size());
    std::sort(order.begin(), order.end());
    lines_.clear();
    lines_.reserve(all.size());
    for (const auto& [number, place] : order)
        lines_.push_back(std::move(all[place]));
}

std::int16_t ReminderLines::NumberOf(std::string_view text) {
    // A description such as "99999 miles: change the oil" is no reason to lose its
    // line, so it is cut, not refused.
    const double number = LeadingNumber(ReplaceAll(text, "In ", ""));
    return RoundToInt16(std::clamp(number, double{INT16_MIN}, double{INT16_MAX}));
}

}  // namespace kaz
