// What WhenReader reads of rules and their ends.

#include "model/words/WhenReader.h"

namespace kaz {

namespace {

constexpr std::int16_t kLastWeekday = 5;
constexpr std::int16_t kLastDayOfMonth = 31;

std::int16_t MaskOf(int weekday) { return static_cast<std::int16_t>(1 << weekday); }

}  // namespace

RecurrenceRule& WhenReader::NewRule(std::int32_t type, int period) {
    when_.rule = RecurrenceRule{};
    when_.rule->type = type;
    when_.rule->period = static_cast<std::int16_t>(period);
    return *when_.rule;
}

bool WhenReader::ReadRule() {
    const std::size_t start = at_;
    if (Take(Word::Daily)) {
        NewRule(RecurEveryNDays, 1);
        return true;
    }
    if (Take(Word::Weekly)) return ReadWeeks(1);
    if (Take(Word::Monthly)) return ReadMonths(1);
    if (Take(Word::Yearly)) return ReadYears(1);
    if (Take(Word::Every) && ReadEvery()) return true;
    at_ = start;
    return false;
}

bool WhenReader::ReadEvery() {
    if (Take(Word::Weekday)) {
        NewRule(RecurWeekdays, 0).weekDays = kMondayToFriday;
        return true;
    }
    if (Take(Word::Weekend)) {
        NewRule(RecurWeekdays, 0).weekDays = kSaturdayAndSunday;
        return true;
    }
    if (const int mask = TakeDayNames()) {
        NewRule(RecurWeekdays, 0).weekDays = static_cast<std::int16_t>(mask);
        return true;
    }
    SaidDay day;
    if (ReadNamedDate(day)) return SetYearly(day, 1);
    const Word behind = at_ + 1 < tokens_.size() ? tokens_[at_ + 1].word : Word::None;
    const bool countsUnits =
        behind == Word::Day || behind == Word::Week || behind == Word::Month || behind == Word::Year;
    if (IsAt(Word::Last) || (IsAt(Word::Nth) && !countsUnits)) return ReadNth();
    int count = 1;
    if (Take(Word::Other))
        count = 2;
    else if (IsAt(Word::Number) || IsAt(Word::Nth))
        count = tokens_[at_++].number;
    if (count < 1 || count > kMostCount) return false;
    if (IsAt(Word::DayName)) return count > 1 && ReadWeeks(count);  // "every other friday"
    if (Take(Word::Day)) {
        NewRule(RecurEveryNDays, count);
        return true;
    }
    if (Take(Word::Week)) return ReadWeeks(count);
    if (Take(Word::Month)) return ReadMonths(count);
    return Take(Word::Year) && ReadYears(count);
}

// Of weekdays in a row; 0 when there is none.
int WhenReader::TakeDayNames() {
    int mask = 0;
    while (IsAt(Word::DayName) || (mask != 0 && IsAt(Word::And) && at_ + 1 < tokens_.size() &&
                                   tokens_[at_ + 1].word == Word::DayName)) {
        Take(Word::And);
        mask |= MaskOf(TakeNumber(Word::DayName));
    }
    return mask;
}

bool WhenReader::ReadWeeks(int count) {
    NewRule(RecurEveryNWeeks, count);
    const std::size_t start = at_;
    Take(Word::On);
    const int first = IsAt(Word::DayName) ? tokens_[at_].number : 0;
    const int mask = TakeDayNames();
    if (mask == 0) {
        at_ = start;
    } else if (mask == MaskOf(first)) {
        when_.fromWeekday = first;
    } else if (count == 1) {
        NewRule(RecurWeekdays, 0).weekDays = static_cast<std::int16_t>(mask);
    } else {
        Fault("Several days every " + std::to_string(count) +
              " weeks are several events. Write a line for each day, or \"every week\".");
    }
    return true;
}

bool WhenReader::ReadMonths(int count) {
    const std::size_t start = at_;
    if (Take(Word::On) && Take(Word::The) && (IsAt(Word::Nth) || IsAt(Word::Last)) && ReadNth()) {
        const RecurrenceRule rule = *when_.rule;
        if (count == 1) return true;
        const bool isDay = rule.type == RecurDayOfMonth && rule.monthNumber == kEveryMonthByDay;
        if (!isDay || rule.dayOfMonth == kLastDayOfMonth)
            Fault("Every " + std::to_string(count) +
                  " months it can be a day up to the 30th. Write such a day, or \"every month\".");
        NewRule(RecurEveryNMonths, count);
        when_.from.kind = SaidDay::Kind::OfMonth;
        when_.from.day = rule.dayOfMonth;
        return true;
    }
    at_ = start;
    if (count == 1) {
        // A count of months that starts on a 31st would move on in shorter ones.
        RecurrenceRule& rule = NewRule(RecurDayOfMonth, 0);
        rule.dayOfMonth = static_cast<std::int16_t>(view_.now.Civil().day);
        rule.monthNumber = kEveryMonthByDay;
    } else {
        NewRule(RecurEveryNMonths, count);
    }
    return true;
}

bool WhenReader::ReadYears(int count) {
    const std::size_t start = at_;
    SaidDay day;
    Take(Word::On);
    Take(Word::The);
    if (ReadNamedDate(day) || ReadNumericDate(day)) return SetYearly(day, count);
    at_ = start;
    NewRule(RecurEveryNMonths, 12 * count);
    return true;
}

bool WhenReader::SetYearly(const SaidDay& day, int count) {
    if (day.kind != SaidDay::Kind::OfYear) return false;
    when_.isWeak = false;
    if (count == 1) {
        RecurrenceRule& rule = NewRule(RecurDayOfMonth, 0);
        rule.dayOfMonth = static_cast<std::int16_t>(day.day);
        rule.monthNumber = static_cast<std::int16_t>(day.month);
    } else {
        NewRule(RecurEveryNMonths, 12 * count);
        when_.from = day;
    }
    return true;
}

// "2nd thursday of november", "last day", "15th of the month"; the month need not be said.
bool WhenReader::ReadNth() {
    const WordToken& token = tokens_[at_++];
    const bool isLast = token.word == Word::Last;
    if (const int weekday = TakeNumber(Word::DayName)) {
        RecurrenceRule& rule = NewRule(RecurNthWeekday, 0);
        rule.dayNumber = isLast ? kLastWeekday : static_cast<std::int16_t>(token.number);
        rule.dayOfWeek = static_cast<std::int16_t>(weekday % 7 + 1);
        rule.monthNumber = static_cast<std::int16_t>(TakeOfMonth());
        if (!isLast && (token.number < 1 || token.number > 4))
            Fault("Not every month has that weekday a " + token.text +
                  " time. Write \"1st\" to \"4th\", or \"last\".");
        return true;
    }
    if (isLast && !Take(Word::Day)) return false;
    const int month = TakeOfMonth();
    RecurrenceRule& rule = NewRule(RecurDayOfMonth, 0);
    rule.dayOfMonth = isLast ? kLastDayOfMonth : static_cast<std::int16_t>(token.number);
    rule.monthNumber = month == 0 ? kEveryMonthByDay : static_cast<std::int16_t>(month);
    if (rule.dayOfMonth < 1 || rule.dayOfMonth > 31)
        Fault("No month has a day " + std::to_string(token.number) + ".");
    return true;
}

// The month behind "of"; 0 for each one, which need not be said.
int WhenReader::TakeOfMonth() {
    const std::size_t start = at_;
    if (Take(Word::Of)) {
        if (const int month = TakeNumber(Word::MonthName)) return month;
        if ((Take(Word::Every) || Take(Word::The)) && Take(Word::Month)) return 0;
    }
    at_ = start;
    return 0;
}

bool WhenReader::ReadEnd() {
    const std::size_t start = at_;
    const bool isWeak = when_.isWeak;
    SaidDay day;
    if (Take(Word::Until) && ReadDay(day)) {
        when_.until = day;
        when_.isWeak = isWeak;
        return true;
    }
    at_ = start;
    if (const int times = TakeNumber(Word::Number); times > 0 && Take(Word::Times)) {
        when_.times = times;
        return true;
    }
    at_ = start;
    return false;
}

}  // namespace kaz
