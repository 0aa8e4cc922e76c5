#include "unit/model/SlowRecurrence.h"

#include "base/RuntimeError.h"

namespace kaz {

namespace {

constexpr int kMostSteps = 200000;

int YearOf(DateValue date) { return date.Civil().year; }
int MonthOf(DateValue date) { return date.Civil().month; }
int DayOf(DateValue date) { return date.Civil().day; }

class Walk {
public:
    Walk(const RecurrenceRule& rule, DateValue reference, DateValue today)
        : rule_(rule),
          reference_(reference),
          today_(today) {}

    Occurrence Run() {
        DateValue start = rule_.startDate;
        if (rule_.type == RecurWeekdays) Weekdays();
        if (rule_.type == RecurDayOfMonth) DayOfMonth();
        if (rule_.type == RecurNthWeekday) NthWeekday();
        if (rule_.type == RecurEveryNMonths || rule_.type == RecurEveryNWeeks ||
            rule_.type == RecurEveryNDays) {
            Interval();
            start = due_;
        }
        return {due_, start};
    }

private:
    void Step() {
        if (++steps_ > kMostSteps) throw RuntimeError(ErrorNumber::InvalidCall);
    }

    void Weekdays() {
        due_ = reference_.DateOnly();
        while ((rule_.weekDays & (1 << due_.WeekdayFromMonday().number)) == 0) {
            Step();
            due_ = due_.PlusDays(1);
        }
    }

    void DayOfMonth() {
        int month = rule_.monthNumber == 13 ? MonthOf(today_) : rule_.monthNumber;
        int year = YearOf(today_);
        for (;;) {
            Step();
            due_ = DateValue::FromCivil(year, month, rule_.dayOfMonth);
            while (MonthOf(due_) != MonthOf(DateValue::FromCivil(year, month, 1)))
                due_ = due_.PlusDays(-1);
            if (due_ >= reference_) return;
            if (rule_.monthNumber == 13) {
                ++month;
                if (month == 13) {
                    month = 1;
                    ++year;
                }
            } else {
                ++year;
            }
        }
    }

    void Interval() {
        due_ = rule_.startDate;
        while (due_ < reference_.DateOnly()) {
            Step();
            const auto [year, month, day] = due_.Civil();
            if (rule_.type == RecurEveryNMonths) due_ = DateValue::FromCivil(year, month + rule_.period, day);
            if (rule_.type == RecurEveryNWeeks)
                due_ = DateValue::FromCivil(year, month, day + rule_.period * 7);
            if (rule_.type == RecurEveryNDays) due_ = DateValue::FromCivil(year, month, day + rule_.period);
        }
    }

    DateValue InMonthOf(DateValue day) const {
        if (DayOf(day) != 1) day = DateValue::FromCivil(YearOf(day), MonthOf(day), 1);
        if (rule_.dayNumber < 5) {
            int weekday = day.WeekdayFromSunday().number;
            for (int i = 0; i < rule_.dayNumber; ++i) {
                while (weekday != rule_.dayOfWeek) {
                    day = day.PlusDays(1);
                    weekday = day.WeekdayFromSunday().number;
                }
                weekday = 0;
            }
            return day;
        }
        DateValue last = DateValue::FromCivil(YearOf(day), MonthOf(day), 31);
        while (MonthOf(last) != MonthOf(day))
            last = last.PlusDays(-1);
        while (last.WeekdayFromSunday().number != rule_.dayOfWeek)
            last = last.PlusDays(-1);
        return last;
    }

    void NthWeekday() {
        DateValue from = reference_.DateOnly();
        do {
            Step();
            due_ = InMonthOf(from);
            while (due_ < from)
                due_ = InMonthOf(DateValue::FromCivil(YearOf(due_), MonthOf(due_) + 1, 1));
            if (rule_.monthNumber == 0 || MonthOf(due_) == rule_.monthNumber) return;
            from = due_.PlusDays(1);
        } while (true);
    }

    const RecurrenceRule& rule_;
    DateValue reference_;
    DateValue today_;
    DateValue due_;
    int steps_ = 0;
};

}  // namespace

std::optional<Occurrence> WalkToOccurrence(const RecurrenceRule& rule, DateValue reference, DateValue today) {
    try {
        return Walk(rule, reference, today).Run();
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace kaz
