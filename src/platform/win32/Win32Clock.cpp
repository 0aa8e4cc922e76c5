#include "platform/win32/Win32Clock.h"

#include <windows.h>

namespace kaz {

DateValue Win32Clock::Now() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const DateValue day = DateValue::FromCivil(now.wYear, now.wMonth, now.wDay);
    return DateValue(day.Day(), (now.wHour * 60 + now.wMinute) * 60 + now.wSecond);
}

double Win32Clock::SecondsSinceMidnight() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return (now.wHour * 60.0 + now.wMinute) * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
}

}  // namespace kaz
