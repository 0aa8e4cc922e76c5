#include "base/DateScanner.h"

#include "base/CaseFolding.h"
#include "base/Text.h"

#include <algorithm>
#include <chrono>

namespace kaz {

namespace {

// The length of the blank at the beginning, 0 without one. No-break spaces stand in the time forms of some
// locales.
std::size_t BlankLength(std::string_view text) {
    if (text.starts_with(' ') || text.starts_with('\t')) return 1;
    for (const std::string_view space : {"\u00A0", "\u202F"})
        if (text.starts_with(space)) return space.size();
    return 0;
}

bool BeginsWithLetter(std::string_view text) {
    if (text.empty()) return false;
    const char c = CaseFolding::Lower(text.front());
    return (c >= 'a' && c <= 'z') || (static_cast<unsigned char>(c) >= 0x80 && BlankLength(text) == 0);
}

constexpr int kMostDigits = 4;

std::optional<DateValue> ValidDate(int year, int month, int day) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
    const auto date = std::chrono::year{year} / month / day;
    return date.ok() ? std::optional(DateValue::FromCivil(year, month, day)) : std::nullopt;
}

std::optional<DateValue> ValidTime(int hour, int minute, int second) {
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return DateValue::FromTime(hour, minute, second);
}

std::optional<DateValue> Together(std::optional<DateValue> date, std::optional<DateValue> time) {
    if (!date || !time) return std::nullopt;
    return DateValue(date->Day(), time->SecondOfDay());
}

// The forms of the files, which hold tens of thousands of them: "YYYY-MM-DD", "... HH:MM" and "... HH:MM:SS".
bool HasIsoShape(std::string_view text) {
    constexpr std::string_view kShape = "0000-00-00 00:00:00";
    if (text.size() != 10 && text.size() != 16 && text.size() != kShape.size()) return false;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (kShape[at] == '0' ? !IsDigit(text[at]) : text[at] != kShape[at]) return false;
    return true;
}

std::optional<DateValue> ReadIso(std::string_view text) {
    const auto pair = [text](std::size_t at) { return (text[at] - '0') * 10 + (text[at + 1] - '0'); };
    const auto date = ValidDate(pair(0) * 100 + pair(2), pair(5), pair(8));
    if (text.size() == 10) return date;
    return Together(date, ValidTime(pair(11), pair(14), text.size() == 16 ? 0 : pair(17)));
}

}  // namespace

std::optional<DateValue> DateScanner::Scan() {
    text_ = Trim(text_);
    if (HasIsoShape(text_)) return ReadIso(text_);
    for (SkipBlanks(); at_ < text_.size(); SkipBlanks()) {
        const bool read = IsDigit(text_[at_]) ? ScanNumber() : ScanSeparator() || ScanName();
        if (!read) return std::nullopt;
    }
    if (separator_ != 0 && separator_ != '.') return std::nullopt;
    if (count_ == 0) return time_;
    return time_ ? Together(Date(), time_) : Date();
}

void DateScanner::SkipBlanks() {
    while (const std::size_t blank = BlankLength(text_.substr(at_)))
        at_ += blank;
}

std::optional<DateScanner::Part> DateScanner::ReadNumber() {
    Part number;
    for (; at_ < text_.size() && IsDigit(text_[at_]); ++at_) {
        if (++number.digits > kMostDigits) return std::nullopt;
        number.value = number.value * 10 + (text_[at_] - '0');
    }
    return number;
}

bool DateScanner::ScanNumber() {
    const auto number = ReadNumber();
    if (!number) return false;
    return At(':') || FindHalf() ? ScanTime(*number) : AddPart(*number);
}

bool DateScanner::ScanTime(Part hour) {
    if (time_ || (count_ != 0 && count_ != parts_.size()) || hour.IsYear()) return false;
    if (separator_ == '/' || separator_ == '-') return false;
    std::array<int, 2> minuteAndSecond{};
    for (int& number : minuteAndSecond) {
        if (!At(':')) break;
        ++at_;
        const auto read = ReadNumber();
        if (!read || read->digits == 0 || read->IsYear()) return false;
        number = read->value;
    }
    if (const auto half = FindHalf()) {
        if (hour.value > 12) return false;
        hour.value = hour.value % 12 + (half->afternoon ? 12 : 0);
        at_ = half->end;
    }
    time_ = ValidTime(hour.value, minuteAndSecond[0], minuteAndSecond[1]);
    separator_ = 0;
    return anything_ = time_.has_value();
}

std::optional<DateScanner::Half> DateScanner::FindHalf() const {
    std::size_t start = at_;
    while (const std::size_t blank = BlankLength(text_.substr(start)))
        start += blank;
    const auto morning = std::max(NameLength("AM", start), NameLength(locale_.morning, start));
    const auto afternoon = std::max(NameLength("PM", start), NameLength(locale_.afternoon, start));
    if (morning == 0 && afternoon == 0) return std::nullopt;
    return Half{start + std::max(morning, afternoon), afternoon > morning};
}

bool DateScanner::ScanSeparator() {
    const char c = text_[at_];
    if (c != '/' && c != '-' && c != '.' && c != ',') return false;
    if (separator_ != 0 || !anything_) return false;
    separator_ = c;
    ++at_;
    return true;
}

bool DateScanner::ScanName() {
    std::size_t longest = 0;
    int month = 0;
    const auto look = [&](const auto& names, bool months) {
        int number = 0;
        for (const std::string& name : names) {
            ++number;
            const auto length = NameLength(name, at_);
            if (length <= longest) continue;
            longest = length;
            month = months ? number : 0;
        }
    };
    // Spanish has one short name for a weekday and a month: the second time, it is the other.
    if (!monthName_) {
        look(locale_.monthNames, true);
        look(locale_.shortMonthNames, true);
    }
    look(locale_.dayNames, false);
    look(locale_.shortDayNames, false);
    if (longest == 0) return false;
    at_ += longest;
    if (month != 0) {
        monthName_ = static_cast<int>(count_);
        return AddPart({month, 0});
    }
    separator_ = 0;
    return anything_ = true;
}

std::size_t DateScanner::NameLength(std::string_view name, std::size_t at) const {
    const bool stop = !name.empty() && name.back() == '.';
    if (stop) name.remove_suffix(1);
    const auto rest = text_.substr(at);
    const std::size_t length = name.empty() ? 0 : CaseFolding::Letters().LengthOf(name, rest);
    if (length == std::string_view::npos || BeginsWithLetter(rest.substr(length))) return 0;
    return length + (length > 0 && stop && rest.substr(length).starts_with('.') ? 1 : 0);
}

bool DateScanner::AddPart(Part part) {
    if (count_ == parts_.size()) return false;
    parts_[count_++] = part;
    separator_ = 0;
    return anything_ = true;
}

std::optional<DateValue> DateScanner::Date() const {
    if (count_ != parts_.size()) return std::nullopt;
    const auto [first, second, third] = parts_;
    Part year, month, day;
    const bool yearFirst = locale_.Order() == DateOrder::YearMonthDay;
    if (monthName_) {
        month = parts_[static_cast<std::size_t>(*monthName_)];
        const Part& a = *monthName_ == 0 ? second : first;
        const Part& b = *monthName_ == 2 ? second : third;
        const bool swapped = a.IsYear() || (yearFirst && *monthName_ != 0 && !b.IsYear());
        year = swapped ? a : b;
        day = swapped ? b : a;
    } else if (first.IsYear() || yearFirst) {
        year = first, month = second, day = third;
    } else {
        const bool dayFirst = locale_.Order() == DateOrder::DayMonthYear;
        year = third;
        day = dayFirst ? first : second;
        month = dayFirst ? second : first;
    }
    if (month.IsYear() || day.IsYear()) return std::nullopt;
    if (!year.IsYear()) year.value += year.value < 30 ? 2000 : 1900;
    return ValidDate(year.value, month.value, day.value);
}

}  // namespace kaz
