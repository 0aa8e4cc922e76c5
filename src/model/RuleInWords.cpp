#include "model/RuleInWords.h"

#include <cstddef>

namespace kaz {

namespace {

std::string Nth(int number) {
    const bool isTeen = number % 100 >= 11 && number % 100 <= 13;
    const int last = isTeen ? 0 : number % 10;
    return std::to_string(number) + (last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th");
}

std::string Every(int count, const std::string& unit) {
    return count == 1 ? "every " + unit : "every " + std::to_string(count) + " " + unit + "s";
}

bool IsMonth(int number) { return number >= 1 && number <= 12; }

// "Monday", or "Mon, Wed and Fri".
std::string DayNames(int mask, const LocaleData& locale) {
    std::string names;
    int named = 0;
    int last = 0;
    for (int weekday = 7; weekday >= 1; --weekday) {
        if ((mask & 1 << weekday) == 0) continue;
        last = weekday;
        const std::string& name = locale.shortDayNames[static_cast<std::size_t>(weekday % 7)];
        names.insert(0, named == 0 ? "" : named == 1 ? " and " : ", ").insert(0, name);
        ++named;
    }
    return named == 1 ? locale.dayNames[static_cast<std::size_t>(last % 7)] : names;
}

std::string OfWeekdays(int mask, const LocaleData& locale) {
    if ((mask & kWholeWeek) == 0) return {};
    if (mask == kWholeWeek) return "every day";
    if (mask == kMondayToFriday) return "every weekday";
    if (mask == kSaturdayAndSunday) return "every weekend";
    return "every " + DayNames(mask, locale);
}

std::string OfDayOfMonth(const clsEvent& event, const LocaleData& locale, bool dayBeforeMonth) {
    const int day = event.DayOfMonth();
    if (day < 1 || day > 31) return {};
    if (event.MonthNumber() == kEveryMonthByDay)
        return day == 31 ? "on the last day of every month" : "on the " + Nth(day) + " of every month";
    if (!IsMonth(event.MonthNumber())) return {};
    const std::string& month = locale.monthNames[static_cast<std::size_t>(event.MonthNumber() - 1)];
    const std::string number = std::to_string(day);
    return "every " + (dayBeforeMonth ? number + " " + month : month + " " + number);
}

std::string OfNthWeekday(const clsEvent& event, const LocaleData& locale) {
    const int number = event.Daynumber();
    const int weekday = event.DayOfWeek();
    const int month = event.MonthNumber();
    if (number < 1 || weekday < 1 || weekday > 7) return {};
    if (month != kEveryMonthByWeekday && !IsMonth(month)) return {};
    return "on the " + (number > 4 ? "last" : Nth(number)) + " " +
           locale.dayNames[static_cast<std::size_t>(weekday - 1)] + " of " +
           (month == kEveryMonthByWeekday ? "every month"
                                          : locale.monthNames[static_cast<std::size_t>(month - 1)]);
}

}  // namespace

std::string RuleInWords(const clsEvent& event, const LocaleData& locale, bool dayBeforeMonth) {
    if (!event.Recurring()) return "once";
    const int period = event.Period();
    const bool isInterval = event.RecurrenceType() != RecurWeekdays &&
                            event.RecurrenceType() != RecurDayOfMonth &&
                            event.RecurrenceType() != RecurNthWeekday;
    if (isInterval && period < 1) return {};
    switch (event.RecurrenceType()) {
    case RecurWeekdays: return OfWeekdays(event.WeekDays(), locale);
    case RecurDayOfMonth: return OfDayOfMonth(event, locale, dayBeforeMonth);
    case RecurEveryNMonths: return period % 12 == 0 ? Every(period / 12, "year") : Every(period, "month");
    case RecurEveryNWeeks:
        return Every(period, "week") + " on " +
               locale.dayNames[static_cast<std::size_t>(event.StartDate().WeekdayFromSunday().number - 1)];
    case RecurNthWeekday: return OfNthWeekday(event, locale);
    case RecurEveryNDays: return Every(period, "day");
    default: return {};
    }
}

}  // namespace kaz
