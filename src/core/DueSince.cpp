#include "core/DueSince.h"

#include "base/DateText.h"
#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr int kMostDays = 31;

using Due = std::pair<DateValue, std::string>;

}  // namespace

std::vector<std::string> DueSince(const std::vector<clsEvent>& events, DateValue since, DateValue now,
                                  const LocaleData& locale, ErrorSink& errors) {
    const DateValue today = now.DateOnly();
    since = std::max(since, today.PlusDays(-kMostDays));
    std::vector<Due> due;
    for (clsEvent event : events) {
        if (event.Deleted) continue;
        if (event.Recurring() && event.DueDate() < since.DateOnly())
            event.CalcNextAfterDate(since.DateOnly(), since.DateOnly(), errors);
        for (int steps = 0; steps <= kMostDays && event.DueDate() <= today; ++steps) {
            const DateValue day = event.DueDate();
            const DateValue minute(day.Day(), event.AlarmTime().SecondOfDay());
            const std::string text = ReplaceAll(event.DescShown(), kLineBreak, " ");
            if (!event.AlarmSet() && day > since && day < today)
                due.emplace_back(day, FormatDate(day, "DDD ", locale) + text);
            if (event.AlarmSet() && minute > since && minute < now.ToMinute())
                due.emplace_back(minute, FormatDate(minute, "DDD HH:NN ", locale) + text);
            if (!event.Recurring()) break;
            event.CalcNextAfterDate(day.PlusDays(1), day.PlusDays(1), errors);
            if (event.DueDate() <= day) break;
        }
    }
    std::stable_sort(due.begin(), due.end(), [](const Due& a, const Due& b) { return a.first < b.first; });
    std::vector<std::string> lines;
    lines.reserve(due.size());
    for (Due& one : due)
        lines.push_back(std::move(one.second));
    return lines;
}

}  // namespace kaz
