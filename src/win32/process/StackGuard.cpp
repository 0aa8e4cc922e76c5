// What functions compiled with -fstack-protector call and compare. The compiler brings such a pair along, but
// that one asks the system's cryptography for its number before the program's first line, and thereby loads
// DLLs that the program has not yet said where to look for.

#include <windows.h>

#include <cstdint>

extern "C" {

// The names and types are the compiler's.
// NOLINTBEGIN(readability-identifier-naming,bugprone-reserved-identifier)
std::uintptr_t __stack_chk_guard = 0xBB40E64E;

[[noreturn]] void __stack_chk_fail() {
    // Nothing that is still on this stack can be trusted: no handler runs, the system writes its report.
    constexpr unsigned kStackWasOverrun = 2;  // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
    asm volatile("int $0x29" : : "c"(kStackWasOverrun));
    __builtin_unreachable();
}
// NOLINTEND(readability-identifier-naming,bugprone-reserved-identifier)
}

namespace {

std::uint64_t Mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
    value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
    return value ^ (value >> 31);
}

// Before every other initialisation, and in a function that is itself not protected (see CMakeLists.txt).
[[gnu::constructor(101)]] void ChooseGuard() {
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    // The kernel keeps a random number for each process and mixes it into the pointer.
    std::uint64_t guard = Mix(reinterpret_cast<std::uintptr_t>(EncodePointer(&time)));
    guard = Mix(guard ^ static_cast<std::uint64_t>(counter.QuadPart));
    guard = Mix(guard ^ (std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime));
    guard = Mix(guard ^ (std::uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId()));
    // The zero byte ends a text that runs up to the guard, and one that is copied over it cannot hold it.
    __stack_chk_guard = static_cast<std::uintptr_t>(guard) & ~std::uintptr_t{0xFF};
}

}  // namespace
