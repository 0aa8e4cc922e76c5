#include "platform/win32/Win32Clock.h"

#include <windows.h>

namespace kaz {

namespace {

DateValue MomentOf(const SYSTEMTIME& time) {
    const DateValue day = DateValue::FromCivil(time.wYear, time.wMonth, time.wDay);
    return DateValue(day.Day(), (time.wHour * 60 + time.wMinute) * 60 + time.wSecond);
}

}  // namespace

DateValue Win32Clock::Now() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return MomentOf(now);
}

DateValue Win32Clock::LocalOf(DateValue utc) const {
    const CivilDate date = utc.Civil();
    const auto word = [](int number) { return static_cast<WORD>(number); };
    const SYSTEMTIME time{word(date.year),
                          word(date.month),
                          0,
                          word(date.day),
                          word(utc.SecondOfDay() / 3600),
                          word(utc.SecondOfDay() / 60 % 60),
                          word(utc.SecondOfDay() % 60),
                          0};
    SYSTEMTIME local{};
    return SystemTimeToTzSpecificLocalTime(nullptr, &time, &local) ? MomentOf(local) : utc;
}

double Win32Clock::SecondsSinceMidnight() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return (now.wHour * 60.0 + now.wMinute) * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
}

}  // namespace kaz
