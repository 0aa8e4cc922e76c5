#pragma once

#include "base/RuntimeError.h"

namespace kaz {

// The number of the error that the step throws; 0 when it throws none.
template <class Step>
int ErrorOf(Step step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

}  // namespace kaz
