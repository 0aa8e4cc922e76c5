#include "platform/posix/PosixClock.h"

#include <algorithm>
#include <ctime>

namespace kaz {

namespace {

struct LocalTime {
    std::tm parts{};
    double fraction = 0;

    LocalTime() {
        std::timespec now{};
        std::timespec_get(&now, TIME_UTC);
        ::localtime_r(&now.tv_sec, &parts);
        parts.tm_sec = std::min(parts.tm_sec, 59);  // a leap second has no place in a day of 86400
        fraction = static_cast<double>(now.tv_nsec) / 1e9;
    }
    int SecondOfDay() const { return (parts.tm_hour * 60 + parts.tm_min) * 60 + parts.tm_sec; }
};

}  // namespace

DateValue PosixClock::Now() const {
    const LocalTime now;
    const DateValue day =
        DateValue::FromCivil(now.parts.tm_year + 1900, now.parts.tm_mon + 1, now.parts.tm_mday);
    return DateValue(day.Day(), now.SecondOfDay());
}

double PosixClock::SecondsSinceMidnight() const {
    const LocalTime now;
    return now.SecondOfDay() + now.fraction;
}

}  // namespace kaz
