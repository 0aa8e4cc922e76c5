#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The lines of a reminder window, the nearest first.
class ReminderLines {
public:
    // The lines in the order in which they would come to stand when added one by one.
    void Add(const std::vector<std::string>& texts);
    void Clear() { lines_.clear(); }
    bool Empty() const { return lines_.empty(); }
    std::vector<std::string> Texts() const;

    // The number that a line is ordered by: the days of "In 3 days: ...", else the digits that it starts
    // with, else 0. Numbers beyond 16 bits count as the nearest end.
    static std::int16_t NumberOf(std::string_view text);

private:
    struct Line {
        std::int16_t number;
        std::string text;
    };
    std::vector<Line> lines_;
};

}  // namespace kaz
