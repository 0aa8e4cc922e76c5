#include "core/DueSince.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "model/AlarmTime.h"
#include "model/Occurrences.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr int kMostDays = 31;

using Due = std::pair<DateValue, std::string>;

}  // namespace

std::vector<std::string> DueSince(const clsDbXml& events, const VisibleEvents& visible, DateValue since,
                                  DateValue now, const LocaleData& locale) {
    const DateValue today = now.DateOnly();
    since = std::max(since, today.PlusDays(-kMostDays));
    // With tomorrow's, whose alarm may have been today.
    const DaySpan span{since.DateOnly(), today.PlusDays(1)};
    std::vector<Due> due;
    visible.ForEach(&events, EventSource::Local, [&](const VisibleEvent& seen) {
        const std::string text = ReplaceAll(seen.event.DescShown(), kLineBreak, " ");
        for (const DateValue day : Occurrences(seen.event, span, span.first)) {
            const auto minute = AlarmMinute(seen.event, day);
            if (!minute && day > since && day < today)
                due.emplace_back(day, FormatDate(day, "DDD ", locale) + text);
            if (minute && *minute > since && *minute < now.ToMinute())
                due.emplace_back(*minute, FormatDate(*minute, "DDD HH:NN ", locale) + text);
        }
    });
    std::stable_sort(due.begin(), due.end(), [](const Due& a, const Due& b) { return a.first < b.first; });
    std::vector<std::string> lines;
    lines.reserve(due.size());
    for (Due& one : due)
        lines.push_back(std::move(one.second));
    return lines;
}

}  // namespace kaz
