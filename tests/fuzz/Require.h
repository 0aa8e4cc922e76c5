#pragma once

#include <cstdio>
#include <cstdlib>

namespace kaz {

// Ends the program when a promise is broken, which the fuzzer takes for a finding.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

}  // namespace kaz
