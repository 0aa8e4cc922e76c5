#include "model/AlarmTime.h"

#include "base/Text.h"
#include "model/Occurrences.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kMinutesPerDay = DateValue::kSecondsPerDay / 60;

// Two digits as a number; -1 when they are none.
int TwoDigits(std::string_view text) {
    const bool digits = text.size() == 2 && std::all_of(text.begin(), text.end(), IsDigit);
    return digits ? (text[0] - '0') * 10 + (text[1] - '0') : -1;
}

// One digit or two.
int UpToTwoDigits(std::string_view text) {
    return text.size() == 1 && IsDigit(text[0]) ? text[0] - '0' : TwoDigits(text);
}

// Takes "am" or "pm" from the end; '\0' when there is neither.
char TakeHalfOfDay(std::string_view& time) {
    if (time.size() < 2 || (time.back() | 0x20) != 'm') return '\0';
    const char half = static_cast<char>(time[time.size() - 2] | 0x20);
    if (half != 'a' && half != 'p') return '\0';
    time = Trim(time.substr(0, time.size() - 2));
    return half;
}

}  // namespace

std::optional<DateValue> TypedTime(std::string_view text) {
    const std::string_view time = Trim(text);
    if (time.size() != 5 || (time[2] != ':' && time[2] != ';')) return std::nullopt;
    const int hour = TwoDigits(time.substr(0, 2));
    const int minute = TwoDigits(time.substr(3));
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return std::nullopt;
    return DateValue::FromTime(hour, minute);
}

std::optional<DateValue> TimeInShort(std::string_view text) {
    std::string_view time = Trim(text);
    const char half = TakeHalfOfDay(time);
    const std::size_t separator = time.find_first_of(":;.");
    const bool bare = separator == std::string_view::npos;
    const std::size_t hourEnd = !bare ? separator : time.size() > 2 ? time.size() - 2 : time.size();
    int hour = UpToTwoDigits(time.substr(0, hourEnd));
    const bool fullHour = bare && hourEnd == time.size();
    const int minute = fullHour ? 0 : TwoDigits(time.substr(bare ? hourEnd : hourEnd + 1));
    if (half != '\0') {
        if (hour < 1 || hour > 12) return std::nullopt;
        hour = hour % 12 + (half == 'p' ? 12 : 0);
    }
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return std::nullopt;
    return DateValue::FromTime(hour, minute);
}

AlarmMoment AlarmBefore(DateValue dueTime, int minutes) {
    const DateValue moment = dueTime.TimeOnly().PlusMinutes(-minutes);
    return {moment.TimeOnly(), std::max(-moment.Day(), 0)};
}

std::optional<DateValue> AlarmMinute(const clsEvent& event, DateValue day) {
    const DateValue time = event.AlarmTime();
    if (!event.AlarmSet() || time != time.TimeOnly().ToMinute()) return std::nullopt;
    const AlarmMoment moment = AlarmBefore(event.DueTime(), event.MinutesWarning());
    return DateValue(day.Day() - (moment.time == time ? moment.daysBefore : 0), time.SecondOfDay());
}

DateValue DayOfAlarm(const clsEvent& event, DateValue minute) {
    const auto due = AlarmMinute(event, event.DueDate());
    return DateValue(minute.Day() + (due ? event.DueDate().Day() - due->Day() : 0));
}

DateValue BeginningOf(const clsEvent& event, DateValue day) {
    if (!event.AlarmSet()) return DateValue(day.Day() + 1);
    return DateValue(day.Day(), event.DueTime().ToMinute().SecondOfDay());
}

namespace {

// Of the days from `first` on whose warning can ring up to `last`.
template <class Take>
void ForEachWarning(const clsEvent& event, DateValue first, DateValue last, Take take) {
    for (const SecondWarning& warning : event.Extras().warnings) {
        // It rings so many days before its event, or one more.
        const int before = 1 + (warning.time ? warning.daysBefore : warning.minutes / kMinutesPerDay);
        const DaySpan days{first.DateOnly(), DateValue(last.Day() + before)};
        for (const DateValue day : Occurrences(event, days, first.DateOnly()))
            take(DayWarning{day, warning.MinuteFor(day, event.DueTime())});
    }
}

}  // namespace

std::vector<DayWarning> WarningsBetween(const clsEvent& event, DateValue first, DateValue last) {
    std::vector<DayWarning> found;
    ForEachWarning(event, first, last, [&](const DayWarning& warning) {
        if (first <= warning.minute && warning.minute <= last) found.push_back(warning);
    });
    return found;
}

std::vector<DayWarning> WarningsAt(const clsEvent& event, DateValue now) {
    std::vector<DayWarning> found;
    ForEachWarning(event, now, now, [&](const DayWarning& warning) {
        if (warning.minute <= now && now < BeginningOf(event, warning.day)) found.push_back(warning);
    });
    return found;
}

std::optional<DateValue> LastAlarm(const clsEvent& event, DateValue first, DateValue last) {
    const std::optional<DateValue> minute = AlarmMinute(event, event.DueDate());
    if (!minute || *minute > last) return std::nullopt;
    const int before = event.DueDate().Day() - minute->Day();
    const DaySpan days{DateValue(first.Day() + before), DateValue(last.Day() + before)};
    std::optional<DateValue> found;
    for (const DateValue day : Occurrences(event, days, first.DateOnly())) {
        const DateValue rings(day.Day() - before, minute->SecondOfDay());
        if (first <= rings && rings <= last) found = rings;
    }
    return found;
}

}  // namespace kaz
