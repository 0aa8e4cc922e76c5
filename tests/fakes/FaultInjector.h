#pragma once

#include "base/RuntimeError.h"

namespace kaz {

// Counts the primitive operations of a fake and makes a chosen one fail. A test that repeats itself with
// FailAt(1), FailAt(2), ... until Struck() is false has tried a failure at every place.
class FaultInjector {
public:
    enum class Lasts { Once, FromThenOn };

    // The n-th operation from now on, counted from 1, fails; 0 takes the fault away.
    void FailAt(int n, ErrorNumber error = ErrorNumber::DeviceError, Lasts lasts = Lasts::Once) {
        countdown_ = n;
        error_ = error;
        lasts_ = lasts;
        struck_ = false;
    }
    bool Struck() const { return struck_; }

    // What the fake calls at the start of each operation.
    void Operation() {
        if (countdown_ > 0 && --countdown_ == 0)
            struck_ = true;
        else if (!struck_ || lasts_ == Lasts::Once || countdown_ != 0)
            return;
        throw RuntimeError(error_);
    }

private:
    int countdown_ = 0;
    ErrorNumber error_ = ErrorNumber::DeviceError;
    Lasts lasts_ = Lasts::Once;
    bool struck_ = false;
};

}  // namespace kaz
