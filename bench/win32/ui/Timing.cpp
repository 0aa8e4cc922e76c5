#include "Timing.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace kaz {
namespace {

double Now() {
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

}  // namespace

void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PaintNow(HWND list) {
    UpdateWindow(list);
    Pump();
}

double Least(int rounds, const std::function<void()>& step) {
    double least = std::numeric_limits<double>::max();
    for (int i = 0; i < rounds; ++i) {
        const double begin = Now();
        step();
        least = std::min(least, Now() - begin);
    }
    return least;
}

void Print(const std::string& name, double milliseconds) {
    std::printf("%-24s %10.3f ms\n", name.c_str(), milliseconds);
}

}  // namespace kaz
