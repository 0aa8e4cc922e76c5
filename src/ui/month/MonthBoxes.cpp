#include "ui/month/MonthBoxes.h"

#include "base/DateText.h"
#include "base/Text.h"

#include <algorithm>
#include <numeric>

namespace kaz {

void MonthBoxes::Show(MonthGrid grid, bool dayBeforeMonth) {
    grid_ = std::move(grid);
    dayBeforeMonth_ = dayBeforeMonth;
}

std::string MonthBoxes::Heading(int box) const {
    const char* pattern = dayBeforeMonth_ ? "DDDD, D MMMM YYYY" : "DDDD, MMMM D, YYYY";
    return FormatDate(grid_.DateOf(grid_.DayIn(box)), pattern, locale_);
}

std::vector<std::size_t> MonthBoxes::InOrderOfTime(int box) const {
    const int day = grid_.DayIn(box);
    std::vector<std::size_t> positions(day > 0 ? grid_.Count(day) : 0);
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    std::ranges::stable_sort(positions, {},
                             [&](std::size_t position) { return grid_.At(day, position).minute; });
    return positions;
}

std::vector<std::string> MonthBoxes::Lines(int box) const {
    std::vector<std::string> lines;
    for (const std::size_t position : InOrderOfTime(box))
        lines.push_back(grid_.FullLine(grid_.DayIn(box), position));
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
    const std::vector<std::size_t> positions = InOrderOfTime(box);
    const std::size_t count = positions.size();
    for (std::size_t row = 0; row < std::min(count, kMost); ++row)
        text.append(kLineBreak).append(grid_.FullLine(day, positions[row]));
    if (count > kMost) text.append(kLineBreak).append(std::to_string(count - kMost)).append(" more");
    if (count == 0) text.append(kLineBreak).append("No events");
    return text;
}

}  // namespace kaz
