#include "model/words/WhenReader.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace kaz {

namespace {

// Numbers of one to four digits with a mark between each two, and perhaps one at the end.
struct Numbers {
    std::array<int, 3> value{};
    std::array<std::size_t, 3> digits{};
    std::size_t count = 0;
    std::string marks;
};

std::optional<Numbers> NumbersIn(std::string_view text) {
    Numbers numbers;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && IsDigit(text[end]))
            ++end;
        if (end == at || end - at > 4 || numbers.count == numbers.value.size()) return std::nullopt;
        std::from_chars(text.data() + at, text.data() + end, numbers.value[numbers.count]);
        numbers.digits[numbers.count++] = end - at;
        if (end < text.size()) numbers.marks += text[end];
        at = end + 1;
    }
    return numbers.count == 0 ? std::nullopt : std::optional(numbers);
}

constexpr int kThisCentury = 2000;

}  // namespace

std::optional<When> WhenReader::Read() {
    if (!ReadWhole() || at_ != tokens_.size()) return std::nullopt;
    // A colon ends what says when.
    for (std::size_t at = 0; at + 1 < tokens_.size(); ++at)
        if (tokens_[at].colon) return std::nullopt;
    return std::move(when_);
}

bool WhenReader::Take(Word word) {
    const bool there = IsAt(word);
    if (there) ++at_;
    return there;
}

int WhenReader::TakeNumber(Word word) { return IsAt(word) ? tokens_[at_++].number : 0; }

void WhenReader::Fault(std::string text) {
    if (when_.fault.empty()) when_.fault = std::move(text);
}

bool WhenReader::ReadWhole() {
    if (ReadRule()) {
        ReadTime();
        ReadEnd();
        return true;
    }
    if (ReadSoon()) return true;
    if (ReadNext() || ReadDay(when_.day)) {
        ReadTime();
        return true;
    }
    if (!ReadTime()) return false;
    if (ReadRule())
        ReadEnd();
    else if (!ReadNext())
        ReadDay(when_.day);
    return true;
}

bool WhenReader::ReadTime() {
    const std::size_t start = at_;
    const bool isSaid = Take(Word::At);
    if (IsAt(Word::TimeOfDay)) {
        const int minute = tokens_[at_++].number;
        when_.time = DateValue::FromTime(minute / 60, minute % 60);
        return true;
    }
    if (at_ < tokens_.size() && ReadClock(isSaid)) return true;
    at_ = start;
    return false;
}

bool WhenReader::ReadClock(bool isSaid) {
    std::string_view text = tokens_[at_].text;
    const std::size_t end = text.find_last_of("0123456789:.") + 1;
    const WordEntry* half = end < text.size() ? words_.Find(text.substr(end)) : nullptr;
    if (end < text.size() && (!half || half->word != Word::Half)) return false;
    auto numbers = NumbersIn(text.substr(0, end));
    if (!numbers || numbers->count > 2 || (numbers->count == 1 && !numbers->marks.empty())) return false;
    if (isSaid && numbers->count == 1 && numbers->digits[0] > 2) {  // "at 730"
        numbers = Numbers{{numbers->value[0] / 100, numbers->value[0] % 100}, {2, 2}, 2, ":"};
    }
    const bool hasMinutes = numbers->count == 2;
    const bool isMark = numbers->marks == ":" || (isSaid && numbers->marks == ".");
    if (numbers->digits[0] > 2 || (hasMinutes && (!isMark || numbers->digits[1] != 2))) return false;
    const bool halfBehind = !half && at_ + 1 < tokens_.size() && tokens_[at_ + 1].word == Word::Half;
    if (!hasMinutes && !half && !halfBehind && !isSaid) return false;

    int hour = numbers->value[0];
    const int minute = numbers->value[1];
    if (half || halfBehind) {
        const int add = half ? half->number : tokens_[at_ + 1].number;
        hour = hour < 1 || hour > 12 ? 24 : hour % 12 + add;
    } else if (!hasMinutes && hour > 23) {
        return false;
    }
    if (hour > 23 || minute > 59)
        Fault("There is no time \"" + tokens_[at_].text + "\". Write 0:00 to 23:59, or 1am to 12pm.");
    else
        when_.time = DateValue::FromTime(hour, minute);
    at_ += halfBehind ? 2 : 1;
    return true;
}

bool WhenReader::ReadSoon() {
    const std::size_t start = at_;
    if (Take(Word::In) && IsAt(Word::Number)) {
        const int count = tokens_[at_++].number;
        const bool isHours = IsAt(Word::Hours);
        if (count > 0 && (isHours || IsAt(Word::Minutes))) {
            ++at_;
            when_.moment = view_.now.ToMinute().PlusMinutes(isHours ? count * 60 : count);
            return true;
        }
    }
    at_ = start;
    return false;
}

// What people understand in two ways.
bool WhenReader::ReadNext() {
    const std::size_t start = at_;
    if (at_ >= tokens_.size()) return false;
    const std::string said = tokens_[at_].text;
    const bool isPast = IsAt(Word::Last);
    if ((Take(Word::Next) || Take(Word::Last)) && at_ < tokens_.size()) {
        const WordToken& what = tokens_[at_];
        const std::string both = "\"" + said + " " + what.text + "\"";
        if (what.word == Word::DayName) {
            const DateValue day = Coming(TakeNumber(Word::DayName));
            const std::string name = "\"" + what.text + "\" (" + view_.Name(day) + ")";
            if (isPast)
                Fault(both + " has passed. Write " + name + ", or \"every last " + what.text +
                      "\" for each month's.");
            else
                Fault("For some " + both + " is the coming one, for others the one after. Write " + name +
                      " or \"" + what.text + " week\" (" + view_.Name(day.PlusDays(7)) + ").");
            return true;
        }
        if (!isPast && (what.word == Word::Week || what.word == Word::Month || what.word == Word::Year)) {
            ++at_;
            Fault(both + " is no day yet. Write a day, such as \"monday\" or \"24 Dec\", or \"in 1 " +
                  (what.word == Word::Year ? "month" : what.text) + "\".");
            return true;
        }
    }
    at_ = start;
    return false;
}

bool WhenReader::ReadDay(SaidDay& day) {
    const DateValue today = view_.now.DateOnly();
    if (IsAt(Word::Today) || IsAt(Word::Tomorrow)) {
        day.kind = SaidDay::Kind::Fixed;
        day.fixed = tokens_[at_++].word == Word::Today ? today : today.PlusDays(1);
        return true;
    }
    if (ReadAhead(day)) return true;
    const std::size_t start = at_;
    const bool on = Take(Word::On);
    if (on && Take(Word::The) && IsAt(Word::Nth)) {
        const int number = tokens_[at_++].number;
        const std::size_t behind = at_;
        Take(Word::Of);
        if (const int month = TakeNumber(Word::MonthName)) {
            SetDate(day, number, month, 0);
        } else {
            at_ = behind;
            day.kind = SaidDay::Kind::OfMonth;
            day.day = number;
            if (number < 1 || number > 31) Fault("No month has a day " + std::to_string(number) + ".");
        }
        return true;
    }
    at_ = on ? start + 1 : start;
    if (ReadDayName(day) || ReadNamedDate(day) || (!on && ReadNumericDate(day))) return true;
    at_ = start;
    return false;
}

bool WhenReader::ReadDayName(SaidDay& day) {
    const int weekday = TakeNumber(Word::DayName);
    if (weekday == 0) return false;
    when_.isWeak = true;
    if (ReadNamedDate(day) || ReadNumericDate(day)) {
        day.weekday = weekday;
        return true;
    }
    day.kind = SaidDay::Kind::Fixed;
    day.fixed = Coming(weekday);
    if (Take(Word::Week)) day.fixed = day.fixed.PlusDays(7);
    return true;
}

// Today's name means in a week.
DateValue WhenReader::Coming(int weekday) const {
    const DateValue today = view_.now.DateOnly();
    return today.PlusDays((weekday - today.WeekdayFromMonday().number + 6) % 7 + 1);
}

bool WhenReader::ReadNamedDate(SaidDay& day) {
    const std::size_t start = at_;
    const auto takeDay = [this] {
        const bool isDay = (IsAt(Word::Number) && IsDigit(tokens_[at_].text[0])) || IsAt(Word::Nth);
        return isDay ? tokens_[at_++].number : 0;
    };
    int number = takeDay();
    if (number != 0) Take(Word::Of);
    const int month = TakeNumber(Word::MonthName);
    if (month != 0 && number == 0) number = takeDay();
    if (month == 0 || number == 0) {
        at_ = start;
        return false;
    }
    const bool hasYear = IsAt(Word::Number) && tokens_[at_].text.size() == 4;
    SetDate(day, number, month, hasYear ? tokens_[at_++].number : 0);
    when_.isWeak = true;
    return true;
}

bool WhenReader::ReadNumericDate(SaidDay& day) {
    if (at_ == tokens_.size()) return false;
    const auto numbers = NumbersIn(tokens_[at_].text);
    if (!numbers || numbers->count < 2) return false;
    auto [first, second, third] = numbers->value;
    const bool isIso = numbers->marks == "--" && numbers->count == 3 && numbers->digits[0] == 4;
    const bool isDotted = numbers->marks == "..";
    const bool isSlashed = numbers->marks == (numbers->count == 3 ? "//" : "/");
    if (!isIso && (numbers->digits[0] > 2 || (numbers->count == 3 && numbers->digits[2] % 2 != 0)))
        return false;
    if (numbers->count == 3 && numbers->digits[isIso ? 0 : 2] == 4 && numbers->value[isIso ? 0 : 2] == 0)
        return false;
    if (numbers->digits[1] > 2 || (!isIso && !isDotted && !isSlashed)) return false;
    if (isIso) {
        SetDate(day, third, second, first);
    } else {
        if (isSlashed && !view_.dayBeforeMonth) std::swap(first, second);
        const bool isTurned = isSlashed && second > 12 && first <= 12 && first > 0;
        if (isTurned)
            Fault("There is no month " + std::to_string(second) + ": with \"/\" the " +
                  (view_.dayBeforeMonth ? "day" : "month") + " is first here. Write \"" +
                  std::to_string(view_.dayBeforeMonth ? second : first) + "/" +
                  std::to_string(view_.dayBeforeMonth ? first : second) + "\", or the month's name.");
        if (numbers->digits[2] == 2) third += kThisCentury;
        SetDate(day, first, second, third);
        if (numbers->count == 2) when_.isWeak = true;
    }
    ++at_;
    return true;
}

void WhenReader::SetDate(SaidDay& day, int number, int month, int year) {
    if (number < 1 || number > DaysInMonth(month, year)) {
        static constexpr const char* kNames[] = {"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};
        const std::string name = month >= 1 && month <= 12 ? kNames[month - 1] : std::to_string(month);
        Fault("There is no " + std::to_string(number) + " " + name +
              (year == 0 ? "" : " " + std::to_string(year)) +
              (month >= 1 && month <= 12
                   ? ". Write a day from 1 to " + std::to_string(DaysInMonth(month, year)) + "."
                   : ". Write a month from 1 to 12, or its name."));
    } else if (year != 0) {
        day.kind = SaidDay::Kind::Fixed;
        day.fixed = DateValue::FromCivil(year, month, number);
        return;
    }
    day.kind = SaidDay::Kind::OfYear;
    day.day = number;
    day.month = month;
}

bool WhenReader::ReadAhead(SaidDay& day) {
    const std::size_t start = at_;
    if (Take(Word::In) && IsAt(Word::Number)) {
        const int count = tokens_[at_++].number;
        const Word unit = at_ < tokens_.size() ? tokens_[at_].word : Word::None;
        const bool isUnit = unit == Word::Day || unit == Word::Week || unit == Word::Month;
        if (isUnit && count > 0 && count <= kMostCount) {
            ++at_;
            const DateValue today = view_.now.DateOnly();
            day.kind = SaidDay::Kind::Fixed;
            day.fixed = today.PlusDays(unit == Word::Week ? count * 7 : count);
            if (unit != Word::Month) return true;
            const CivilDate civil =
                DateValue::FromCivil(today.Civil().year, today.Civil().month + count, 1).Civil();
            const int length = DaysInMonth(civil.month, civil.year);
            day.fixed = DateValue::FromCivil(civil.year, civil.month, std::min(today.Civil().day, length));
            return true;
        }
    }
    at_ = start;
    return false;
}

}  // namespace kaz
