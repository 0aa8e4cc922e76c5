#include "model/RulePreview.h"

#include "base/DateText.h"
#include "model/AlarmTime.h"
#include "model/Occurrences.h"

#include <algorithm>
#include <chrono>
#include <optional>

namespace kaz {

namespace {

// In a year that is no leap year, which is the case that surprises.
int DaysIn(int month) {
    using namespace std::chrono;
    const auto last = year(2023) / std::chrono::month(static_cast<unsigned>(month)) / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

bool IsCutShort(const clsEvent& event) {
    const int day = event.DayOfMonth();
    if (event.MonthNumber() == kEveryMonthByDay) return day > 28;
    return event.MonthNumber() >= 1 && event.MonthNumber() <= 12 && day > DaysIn(event.MonthNumber());
}

// Whether the steps reach a month that does not have the day they started on.
// After twelve steps the months repeat.
bool Drifts(DateValue start, int period) {
    const CivilDate civil = start.Civil();
    for (int step = 1; step <= 12; ++step)
        if (civil.day > DaysIn((civil.month - 1 + step * period) % 12 + 1)) return true;
    return false;
}

// `next` is the event's next date, if it has one.
std::string WarningOf(const clsEvent& event, std::optional<DateValue> next, DateValue now) {
    std::string text;
    const auto add = [&text](const std::string& sentence) {
        text.append(text.empty() ? "" : " ").append(sentence);
    };
    const std::string day = std::to_string(event.DayOfMonth());
    if (event.RecurrenceType() == RecurDayOfMonth && IsCutShort(event))
        add("Where the month has no day " + day + ", its last day counts.");
    if (event.RecurrenceType() == RecurEveryNMonths && event.Recurring() &&
        Drifts(event.StartDate(), event.Period()))
        add("Where the month has no such day, the event moves on into the next month, and stays on that "
            "day.");
    const std::optional<DateValue> alarm = next ? AlarmMinute(event, *next) : std::nullopt;
    if (alarm && *alarm < *next) add("The alarm sounds on the day before.");
    if (alarm && *alarm < now.ToMinute())
        add(std::string("The alarm's time has passed") + (alarm->Day() == now.Day() ? " today" : "") +
            (event.Recurring() ? "; it sounds from the next date on." : "; it will not sound."));
    if (!next && event.Recurring() && event.Extras().lastDay) add("No date is left: the series has ended.");
    if (event.ExecFile && !event.AlarmSet())
        add("Without an alarm the file is never run, and the event is not listed on its day.");
    return text;
}

// Looked for from its end on, in few steps however long the series is.
std::optional<DateValue> LastDateOf(const clsEvent& event, DateValue today) {
    const auto end = event.Recurring() ? event.Extras().lastDay : std::nullopt;
    if (!end) return std::nullopt;
    for (const std::int32_t days : {31, 400, 4000}) {
        const DateValue first(std::max(today.Day(), end->Day() - days));
        std::optional<DateValue> last;
        for (const DateValue day : Occurrences::OfRule(event, {first, *end}, today))
            last = day;
        if (last) return last;
    }
    return std::nullopt;
}

}  // namespace

RulePreview::RulePreview(const clsEvent& event, DateValue now) {
    const DateValue today = now.DateOnly();
    for (const DateValue day : Occurrences::OfRule(event, {today, DateValue(kLastDay)}, today)) {
        dates_.push_back(day);
        if (dates_.size() == kDates) break;
    }
    lastDate_ = LastDateOf(event, today);
    warning_ = WarningOf(event, dates_.empty() ? std::nullopt : std::optional(dates_.front()), now);
}

std::string RulePreview::DatesLine(std::string_view pattern, const LocaleData& locale) const {
    if (dates_.empty()) return {};
    const std::string shape = std::string("DDD ").append(pattern);
    std::string line;
    for (const DateValue date : dates_)
        line.append(line.empty() ? "" : ",  ").append(FormatDate(date, shape, locale));
    if (lastDate_) line.append(".  Last date:  ").append(FormatDate(*lastDate_, shape, locale));
    return (dates_.size() == 1 ? "Next date:  " : "Next dates:  ") + line;
}

}  // namespace kaz
