#pragma once

#include "base/LocaleData.h"
#include "model/MonthGrid.h"

#include <string>
#include <vector>

namespace kaz {

// The events of a month as a list to read or print: one line an event, in the order of the days.
class MonthList {
public:
    struct Line {
        std::string dayName;  // abbreviated; "" where the day is that of the line above
        int day = 0;
        std::string description;  // whole
    };

    MonthList(const MonthGrid& grid, const LocaleData& locale);

    // "Events for " and the month.
    const std::string& Heading() const { return heading_; }
    const std::vector<Line>& Lines() const { return lines_; }
    // The whole list with tabs between its columns, as a text file has it.
    std::string Text() const;

private:
    std::string heading_;
    std::vector<Line> lines_;
};

}  // namespace kaz
