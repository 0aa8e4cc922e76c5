#include "platform/win32/Win32Random.h"

#include <windows.h>

#include <bit>

namespace kaz {

namespace {

// The SplitMix64 step: every state gives a number without any visible relation to its neighbours'.
std::uint64_t Mix(std::uint64_t& state) {
    std::uint64_t z = state += 0x9E3779B97F4A7C15U;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}

}  // namespace

Win32Random::Win32Random() {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    state_ = static_cast<std::uint64_t>(counter.QuadPart) ^ (std::uint64_t{GetCurrentProcessId()} << 32);
}

void Win32Random::Seed(double seed) {
    state_ ^= std::bit_cast<std::uint64_t>(seed);
    Mix(state_);
}

double Win32Random::Next() {
    constexpr double kSpan = 9007199254740992.0;  // 2 to the 53rd: what a double holds exactly
    return static_cast<double>(Mix(state_) >> 11) / kSpan;
}

}  // namespace kaz
