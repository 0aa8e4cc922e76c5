#pragma once

#include "base/LocaleData.h"
#include "forms/DayGrid.h"
#include "model/MonthGrid.h"

#include <string>
#include <utility>
#include <vector>

namespace kaz {

// A month as the grid control shows it.
class MonthBoxes : public DayBoxes {
public:
    // The locale outlives the boxes.
    MonthBoxes(const LocaleData& locale, MonthGrid grid) : locale_(locale), grid_(std::move(grid)) {}

    // `dayBeforeMonth`: how dates are written.
    void Show(MonthGrid grid, bool dayBeforeMonth);
    const MonthGrid& Grid() const { return grid_; }
    // The box's date in words.
    std::string Heading(int box) const;
    // The positions of its events, those of the whole day first and the others in the order of their time.
    std::vector<std::size_t> InOrderOfTime(int box) const;
    // All its events in that order.
    std::vector<std::string> Lines(int box) const;

    std::string ColumnName(int column) const override {
        return locale_.dayNames[static_cast<std::size_t>(column)];
    }
    DayBox Box(int box) const noexcept override;
    std::string Line(int box, int line) const override;
    // Cut after a number of events that fits a screen.
    std::string WholeDay(int box) const override;

private:
    const LocaleData& locale_;
    MonthGrid grid_;
    bool dayBeforeMonth_ = false;
};

}  // namespace kaz
