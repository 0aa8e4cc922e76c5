#include "base/DateValue.h"

#include "base/RuntimeError.h"

#include <chrono>
#include <cmath>

namespace kaz {

namespace {

using std::chrono::sys_days;

constexpr sys_days kZero = std::chrono::year{1899} / 12 / 30;

std::int32_t CheckedDay(std::int64_t day) {
    if (day < kFirstDay || day > kLastDay) throw RuntimeError(ErrorNumber::InvalidCall);
    return static_cast<std::int32_t>(day);
}

constexpr int Modulo(std::int32_t value, int divisor) {
    const int rest = static_cast<int>(value % divisor);
    return rest < 0 ? rest + divisor : rest;
}

}  // namespace

DateValue DateValue::FromCivil(int year, int month, int day) {
    constexpr int kFarthest = 1 << 24;
    // Keeps the arithmetic below inside 64 bits; all of it is out of range anyway.
    const auto far = [](int value) { return value < -kFarthest || value > kFarthest; };
    if (far(year) || far(month) || far(day)) throw RuntimeError(ErrorNumber::InvalidCall);

    const std::int64_t months = std::int64_t{year} * 12 + (month - 1);
    const std::int64_t carriedYear = months >= 0 ? months / 12 : (months - 11) / 12;
    if (carriedYear < -32000 || carriedYear > 32000) throw RuntimeError(ErrorNumber::InvalidCall);
    const auto carriedMonth = static_cast<unsigned>(months - carriedYear * 12) + 1;

    const sys_days first =
        std::chrono::year{static_cast<int>(carriedYear)} / std::chrono::month{carriedMonth} / 1;
    return DateValue(CheckedDay(std::int64_t{(first - kZero).count()} + day - 1));
}

DateValue DateValue::FromTime(int hour, int minute, int second) {
    const bool valid = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
    if (!valid) throw RuntimeError(ErrorNumber::InvalidCall);
    return DateValue(0, (hour * 60 + minute) * 60 + second);
}

DateValue DateValue::FromSerial(double serial) {
    // The comparison is written so that a value that is no number fails it.
    if (!(serial > kFirstDay - 1.0 && serial < kLastDay + 1.0)) throw RuntimeError(ErrorNumber::Overflow);
    const double whole = std::trunc(serial);
    auto day = static_cast<std::int32_t>(whole);
    auto second = static_cast<std::int32_t>(std::lround(std::fabs(serial - whole) * kSecondsPerDay));
    if (second == kSecondsPerDay) {
        second = 0;
        ++day;
    }
    if (day < kFirstDay || day > kLastDay) throw RuntimeError(ErrorNumber::Overflow);
    return DateValue(day, second);
}

double DateValue::Serial() const {
    const double fraction = static_cast<double>(second_) / kSecondsPerDay;
    return day_ < 0 ? day_ - fraction : day_ + fraction;
}

DateValue DateValue::PlusDays(std::int32_t days) const {
    return DateValue(CheckedDay(std::int64_t{day_} + days), second_);
}

DateValue DateValue::PlusMinutes(std::int32_t minutes) const {
    const std::int64_t total = std::int64_t{day_} * kSecondsPerDay + second_ + std::int64_t{minutes} * 60;
    const std::int64_t day =
        total >= 0 ? total / kSecondsPerDay : (total - (kSecondsPerDay - 1)) / kSecondsPerDay;
    return DateValue(CheckedDay(day), static_cast<std::int32_t>(total - day * kSecondsPerDay));
}

CivilDate DateValue::Civil() const {
    const std::chrono::year_month_day date{kZero + std::chrono::days{day_}};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

// Day zero, 30 December 1899, was a Saturday.
SundayWeekday DateValue::WeekdayFromSunday() const { return {Modulo(day_ + 6, 7) + 1}; }

MondayWeekday DateValue::WeekdayFromMonday() const { return {Modulo(day_ + 5, 7) + 1}; }

}  // namespace kaz
