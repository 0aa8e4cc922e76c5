#include "model/MonthList.h"

#include "base/DateText.h"
#include "base/Text.h"

namespace kaz {

MonthList::MonthList(const MonthGrid& grid, const LocaleData& locale)
    : heading_("Events for " + FormatDate(grid.First(), "MMMM YYYY", locale)) {
    for (int day = 1; day <= grid.Length(); ++day) {
        std::string name = FormatDate(grid.DateOf(day), "DDD", locale);
        for (std::size_t position = 0; position < grid.Count(day); ++position) {
            lines_.push_back({std::move(name), day, std::string(grid.At(day, position).description)});
            name.clear();
        }
    }
}

std::string MonthList::Text() const {
    std::string text = heading_;
    text.append(kLineBreak);
    for (const Line& line : lines_) {
        text.append(line.dayName).append("\t");
        if (!line.dayName.empty()) text.append(std::to_string(line.day));
        text.append("\t").append(line.description).append(kLineBreak);
    }
    return text;
}

}  // namespace kaz
