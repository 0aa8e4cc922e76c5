#include "platform/posix/PosixClock.h"

#include <algorithm>
#include <cstdint>
#include <ctime>

namespace kaz {

namespace {

struct LocalTime {
    std::tm parts{};
    double fraction = 0;

    LocalTime() {
        std::timespec now{};
        std::timespec_get(&now, TIME_UTC);
        Take(now.tv_sec);
        fraction = static_cast<double>(now.tv_nsec) / 1e9;
    }
    explicit LocalTime(std::time_t time) { Take(time); }
    void Take(std::time_t time) {
        ::localtime_r(&time, &parts);
        parts.tm_sec = std::min(parts.tm_sec, 59);  // a leap second has no place in a day of 86400
    }
    DateValue Moment() const {
        const DateValue day = DateValue::FromCivil(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday);
        return DateValue(day.Day(), SecondOfDay());
    }
    int SecondOfDay() const { return (parts.tm_hour * 60 + parts.tm_min) * 60 + parts.tm_sec; }
};

}  // namespace

DateValue PosixClock::Now() const { return LocalTime().Moment(); }

DateValue PosixClock::LocalOf(DateValue utc) const {
    constexpr std::int64_t kDaysTo1970 = 25569;
    const std::int64_t days = utc.Day() - kDaysTo1970;
    return LocalTime(days * DateValue::kSecondsPerDay + utc.SecondOfDay()).Moment();
}

double PosixClock::SecondsSinceMidnight() const {
    const LocalTime now;
    return now.SecondOfDay() + now.fraction;
}

}  // namespace kaz
