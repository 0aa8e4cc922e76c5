#include "floor/Rules.h"

#include "floor/Days.h"

namespace bare {
namespace {

constexpr int kEveryMonth = 13;

void OnWeekDays(Record& record, int reference) {
    record.due = reference;
    while (!(record.weekDays & (1 << MondayFirst(record.due))))
        ++record.due;
}

void OnDayOfMonth(Record& record, int reference, int today) {
    const Civil now = CivilOf(today);
    int year = now.year;
    int month = record.month == kEveryMonth ? now.month : record.month;
    for (;;) {
        record.due = DayNumber(year, month, record.dayOfMonth);
        while (CivilOf(record.due).month != month)
            --record.due;
        if (record.due >= reference) return;
        if (record.month != kEveryMonth) {
            ++year;
        } else if (++month == 13) {
            month = 1;
            ++year;
        }
    }
}

void EveryMonths(Record& record, int reference) {
    while (record.start < reference) {
        const Civil start = CivilOf(record.start);
        record.start = DayNumber(start.year, start.month + record.period, start.day);
    }
    record.due = record.start;
}

void EveryDays(Record& record, int reference, int days) {
    while (record.start < reference)
        record.start += days;
    record.due = record.start;
}

int NthWeekDay(int year, int month, int number, int weekDay) {
    if (number == 5) {
        int day = DayNumber(year, month + 1, 1) - 1;
        while (SundayFirst(day) != weekDay)
            --day;
        return day;
    }
    int day = DayNumber(year, month, 1);
    while (SundayFirst(day) != weekDay)
        ++day;
    return day + 7 * (number - 1);
}

void OnNthWeekDay(Record& record, int reference) {
    for (;;) {
        const Civil month = CivilOf(reference);
        record.due = NthWeekDay(month.year, month.month, record.number, record.dayOfWeek);
        while (record.due < reference) {
            const Civil due = CivilOf(record.due);
            record.due = NthWeekDay(due.year, due.month + 1, record.number, record.dayOfWeek);
        }
        if (!record.month || CivilOf(record.due).month == record.month) return;
        reference = record.due + 1;
    }
}

}  // namespace

void MoveOn(Record& record, int reference, int today) {
    record.mailSent = false;
    switch (record.type) {
    case 0: return OnWeekDays(record, reference);
    case 1: return OnDayOfMonth(record, reference, today);
    case 2: return EveryMonths(record, reference);
    case 3: return EveryDays(record, reference, 7 * record.period);
    case 4: return OnNthWeekDay(record, reference);
    case 5: return EveryDays(record, reference, record.period);
    default: return;
    }
}

}  // namespace bare
