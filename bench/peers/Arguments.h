#pragma once

#include <chrono>
#include <cstdio>
#include <string>

// What the programs around other libraries have in common with program_kaz:
//   PROGRAM agenda|month|save FILE YYYY-MM-DD OUT
struct Arguments {
    Arguments(int count, char** arguments) {
        if (count != 5) return;
        operation = arguments[1];
        file = arguments[2];
        out = arguments[4];
        valid = std::sscanf(arguments[3], "%d-%d-%d", &year, &month, &day) == 3;
    }

    bool valid = false;
    std::string operation, file, out;
    int year = 0, month = 0, day = 0;
};

// Tells stderr the milliseconds from its making to its end.
class Stopwatch {
public:
    ~Stopwatch() {
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin_;
        std::fprintf(stderr, "%.3f ms\n", took.count());
    }

private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};
