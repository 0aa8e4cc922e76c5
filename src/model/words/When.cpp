#include "model/words/When.h"

#include "base/DateText.h"

#include <chrono>

namespace kaz {

namespace {

constexpr int kYearsAhead = 8;  // between two leap years at most
constexpr int kMonthsAhead = 3;

// With `isLate`, today is over for what is looked for.
std::optional<DateValue> DayOf(const SaidDay& said, DateValue today, bool isLate) {
    const DateValue first = isLate ? today.PlusDays(1) : today;
    const CivilDate civil = first.Civil();
    switch (said.kind) {
    case SaidDay::Kind::None: return first;
    case SaidDay::Kind::Fixed: return said.fixed;
    case SaidDay::Kind::OfYear:
        for (int year = civil.year; year <= civil.year + kYearsAhead; ++year) {
            if (said.day > DaysInMonth(said.month, year)) continue;
            const DateValue day = DateValue::FromCivil(year, said.month, said.day);
            if (day >= first) return day;
        }
        return std::nullopt;
    case SaidDay::Kind::OfMonth:
        for (int ahead = 0; ahead <= kMonthsAhead; ++ahead) {
            const int month = (civil.month - 1 + ahead) % 12 + 1;
            const int year = civil.year + (civil.month - 1 + ahead) / 12;
            if (said.day > DaysInMonth(month, year)) continue;
            const DateValue day = DateValue::FromCivil(year, month, said.day);
            if (day >= first) return day;
        }
        return std::nullopt;
    }
    return std::nullopt;
}

std::string TimeText(DateValue time) { return FormatDate(time, "H:NN", {}); }

// Why the day cannot be, or an empty text.
std::string FaultOf(const SaidDay& said, std::optional<DateValue> day, const WhenView& view, bool isLate) {
    if (!day) return "There is no such day.";
    if (*day < view.now.DateOnly())
        return view.Name(*day) + " has passed. Write a later day, or leave the year out.";
    if (*day == view.now.DateOnly() && isLate) return "passed";
    static constexpr const char* kNames[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                             "Friday", "Saturday", "Sunday"};
    const int weekday = day->WeekdayFromMonday().number;
    if (said.weekday != 0 && said.weekday != weekday)
        return view.Name(*day) + " is no " + kNames[said.weekday - 1] +
               ". Write the day or the date, or both as they are.";
    return {};
}

std::string DecideOnce(const When& when, const WhenView& view, clsEvent& event) {
    const DateValue today = view.now.DateOnly();
    const bool isLate = when.time && when.time->MinuteOfDay() <= view.now.MinuteOfDay();
    const std::optional<DateValue> day =
        when.moment ? std::optional(when.moment->DateOnly()) : DayOf(when.day, today, isLate);
    std::string fault = when.moment ? "" : FaultOf(when.day, day, view, isLate);
    if (fault == "passed")
        return TimeText(*when.time) + " today has passed. Write \"tomorrow " + TimeText(*when.time) +
               "\", or a later time.";
    if (!fault.empty()) return fault;
    event.Recurring(false);
    event.RecurrenceType(RecurEveryNDays);
    event.Period(1);
    event.StartDate(*day);
    event.DueDate(*day);
    return {};
}

DateValue StartOf(const When& when, DateValue first) {
    if (when.from.kind != SaidDay::Kind::None) return DayOf(when.from, first, false).value_or(first);
    if (when.fromWeekday == 0) return first;
    return first.PlusDays((when.fromWeekday - first.WeekdayFromMonday().number + 7) % 7);
}

std::string DecideEnd(const When& when, const WhenView& view, DateValue first, clsEvent& event) {
    if (!when.until && when.times == 0) return {};
    const DateValue today = view.now.DateOnly();
    EventExtras extras;
    extras.times = when.times;
    if (when.until) {
        extras.lastDay = DayOf(*when.until, today, false);
        std::string fault = FaultOf(*when.until, extras.lastDay, view, false);
        if (!fault.empty()) return fault;
    } else {
        extras.lastDay = LastDayOf(event.Rule(), first, when.times, today);
    }
    const auto start = FirstOccurrence(event.Rule(), first, today);
    if (start && extras.EndsBefore(start->dueDate))
        return "It would end on " + view.Name(*extras.lastDay) + ", before its first day, " +
               view.Name(start->dueDate) + ". Write a later end.";
    event.Extras(extras);
    return {};
}

std::string DecideRule(const When& when, const WhenView& view, clsEvent& event) {
    const DateValue today = view.now.DateOnly();
    const bool isLate = when.time && when.time->MinuteOfDay() <= view.now.MinuteOfDay();
    const DateValue first = isLate ? today.PlusDays(1) : today;
    const RecurrenceRule& rule = *when.rule;
    event.Recurring(true);
    event.RecurrenceType(rule.type);
    event.WeekDays(rule.weekDays);
    event.DayOfMonth(rule.dayOfMonth);
    event.MonthNumber(rule.monthNumber);
    event.Period(rule.period);
    event.Daynumber(rule.dayNumber);
    event.DayOfWeek(rule.dayOfWeek);
    event.StartDate(StartOf(when, first));
    const auto start = FirstOccurrence(event.Rule(), first, today);
    if (!start) return "There is no such day.";
    event.DueDate(start->dueDate);
    return DecideEnd(when, view, first, event);
}

}  // namespace

std::string WhenView::Name(DateValue day) const {
    return FormatDate(day, dayBeforeMonth ? "DDD D MMM YYYY" : "DDD MMM D YYYY", {});
}

int DaysInMonth(int month, int year) {
    using namespace std::chrono;
    constexpr int kLeapYear = 2024;
    if (month < 1 || month > 12) return 0;
    const auto last = std::chrono::year(year == 0 ? kLeapYear : year) /
                      std::chrono::month(static_cast<unsigned>(month)) / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

std::string Decide(const When& when, const WhenView& view, clsEvent& event) {
    if (!when.fault.empty()) return when.fault;
    std::string fault = when.rule ? DecideRule(when, view, event) : DecideOnce(when, view, event);
    if (!fault.empty()) return fault;
    const std::optional<DateValue> time = when.moment ? std::optional(when.moment->TimeOnly()) : when.time;
    event.AlarmSet(time.has_value());
    if (time) event.DueTime(*time);
    return {};
}

}  // namespace kaz
