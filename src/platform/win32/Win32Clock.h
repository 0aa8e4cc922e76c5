#pragma once

#include "platform/Clock.h"

namespace kaz {

class Win32Clock : public Clock {
public:
    DateValue Now() const override;
    double SecondsSinceMidnight() const override;
    DateValue LocalOf(DateValue utc) const override;
};

}  // namespace kaz
