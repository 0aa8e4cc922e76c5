#include "ui/month/MonthBoxes.h"

#include "base/DateText.h"
#include "base/Text.h"

#include <algorithm>

namespace kaz {

void MonthBoxes::Show(MonthGrid grid, bool dayBeforeMonth) {
    grid_ = std::move(grid);
    dayBeforeMonth_ = dayBeforeMonth;
}

std::string MonthBoxes::Heading(int box) const {
    const char* pattern = dayBeforeMonth_ ? "DDDD, D MMMM YYYY" : "DDDD, MMMM D, YYYY";
    return FormatDate(grid_.DateOf(grid_.DayIn(box)), pattern, locale_);
}

std::vector<std::string> MonthBoxes::Lines(int box) const {
    std::vector<std::string> lines;
    const int day = grid_.DayIn(box);
    for (std::size_t position = 0; day > 0 && position < grid_.Count(day); ++position)
        lines.push_back(grid_.FullLine(day, position));
    return lines;
}

DayBox MonthBoxes::Box(int box) const noexcept {
    const int day = grid_.DayIn(box);
    if (day == 0) return {};
    return {day, static_cast<int>(grid_.Count(day)), day == grid_.Today()};
}

std::string MonthBoxes::Line(int box, int line) const {
    return grid_.LineInBox(grid_.DayIn(box), static_cast<std::size_t>(line));
}

std::string MonthBoxes::WholeDay(int box) const {
    constexpr std::size_t kMost = 25;
    const int day = grid_.DayIn(box);
    if (day == 0) return {};
    std::string text = Heading(box);
    if (day == grid_.Today()) text.append(" (today)");
    const std::size_t count = grid_.Count(day);
    for (std::size_t position = 0; position < std::min(count, kMost); ++position)
        text.append(kLineBreak).append(grid_.FullLine(day, position));
    if (count > kMost) text.append(kLineBreak).append(std::to_string(count - kMost)).append(" more");
    if (count == 0) text.append(kLineBreak).append("No events");
    return text;
}

}  // namespace kaz
