#pragma once

#include "platform/Clock.h"

namespace kaz {

// Stands still until it is set or told to go on.
class FakeClock : public Clock {
public:
    DateValue Now() const override { return now; }
    double SecondsSinceMidnight() const override { return now.SecondOfDay(); }
    DateValue LocalOf(DateValue utc) const override { return utc.PlusMinutes(aheadOfUtc); }

    void Set(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        const DateValue time = DateValue::FromTime(hour, minute, second);
        now = DateValue(DateValue::FromCivil(year, month, day).Day(), time.SecondOfDay());
    }
    void AdvanceMinutes(int minutes) { now = now.PlusMinutes(minutes); }
    void AdvanceDays(int days) { now = now.PlusDays(days); }

    int aheadOfUtc = 0;              // minutes
    DateValue now{45000, 9 * 3600};  // 15 March 2023, a Wednesday, at nine
};

}  // namespace kaz
