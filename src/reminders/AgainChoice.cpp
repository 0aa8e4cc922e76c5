#include "reminders/AgainChoice.h"

#include "base/DateText.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace kaz {

namespace {

constexpr std::string_view kWhenItStarts = "when it starts";
constexpr std::string_view kTomorrow = "tomorrow at 9:00";
constexpr int kMinutesOfHour = 60;
constexpr int kMinutesOfDay = 24 * 60;
constexpr int kNine = 9 * kMinutesOfHour;
constexpr int kLast = 23 * kMinutesOfHour + 30;  // the latest of a day

DateValue TimeOn(DateValue day, int minuteOfDay) { return DateValue(day.Day(), minuteOfDay * 60); }

// To the nearest minute.
DateValue MinutesFrom(DateValue now, int minutes) {
    return now.ToMinute().PlusMinutes(minutes + (now.SecondOfDay() % 60 >= 30 ? 1 : 0));
}

std::string CountOf(int number, std::string_view unit) {
    return std::to_string(number).append(" ").append(unit).append(number == 1 ? "" : "s");
}

// The minutes of a unit that begins like that; 0 when there is none.
int UnitOf(std::string_view text) {
    if (text.empty() || text.front() == 'm' || text.front() == 'M') return 1;
    if (text.front() == 'h' || text.front() == 'H') return kMinutesOfHour;
    return text.front() == 'd' || text.front() == 'D' ? kMinutesOfDay : 0;
}

}  // namespace

std::string AgainChoice::Words() const {
    switch (kind) {
    case Kind::WhenItStarts: return std::string(kWhenItStarts);
    case Kind::TomorrowMorning: return std::string(kTomorrow);
    case Kind::AtTime: return "at " + FormatDate(time, "HH:NN", LocaleData{});
    case Kind::Minutes: break;
    }
    if (minutes % kMinutesOfDay == 0) return "in " + CountOf(minutes / kMinutesOfDay, "day");
    if (minutes % kMinutesOfHour == 0) return "in " + CountOf(minutes / kMinutesOfHour, "hour");
    return "in " + CountOf(minutes, "minute");
}

std::optional<DateValue> AgainChoice::Until(DateValue now, std::optional<DateValue> start) const {
    switch (kind) {
    case Kind::WhenItStarts: return start && *start > now ? start : std::nullopt;
    case Kind::TomorrowMorning: return TimeOn(now.PlusDays(1), kNine);
    case Kind::AtTime: {
        const DateValue today = TimeOn(now, time.MinuteOfDay());
        return today > now ? today : today.PlusDays(1);
    }
    case Kind::Minutes: break;
    }
    return MinutesFrom(now, minutes);
}

std::optional<AgainChoice> AgainChoice::Read(std::string_view typed, const LocaleData& locale) {
    std::string_view text = Trim(typed);
    if (text == kWhenItStarts) return AgainChoice{Kind::WhenItStarts};
    if (text == kTomorrow) return AgainChoice{Kind::TomorrowMorning};
    for (const std::string_view word : {"in ", "at "})
        if (text.starts_with(word)) text = Trim(text.substr(word.size()));
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const std::string_view rest = Trim(text.substr(static_cast<std::size_t>(end - text.data())));
    if (error == std::errc{} && number > 0 && UnitOf(rest) > 0 && number <= kLongest / UnitOf(rest))
        return AgainChoice{Kind::Minutes, number * UnitOf(rest)};
    const auto time = RecogniseDate(text, locale);
    if (!time || time->Day() != 0 || text.find(':') == std::string_view::npos) return std::nullopt;
    return AgainChoice{Kind::AtTime, 0, time->ToMinute()};
}

DateValue LaterToday(DateValue now) {
    const DateValue latest = TimeOn(now, kLast);
    return now < latest ? std::min(MinutesFrom(now, 2 * kMinutesOfHour), latest) : MinutesFrom(now, 10);
}

}  // namespace kaz
