#pragma once

#include "core/Application.h"
#include "forms/ReportList.h"
#include "ui/print/ListPages.h"

#include <array>
#include <string>
#include <vector>

namespace kaz {

// What the user will be told on some days, as rows of a list: day, window, time and text. The rules are those
// of the engine (ReminderDay), and so is the order within a window.
class Forecast : public ReportRows {
public:
    static constexpr int kDays = 14;
    enum Column { kDay, kWindow, kTime, kText, kColumns };

    // Looks at the events as they are now, from the first day on.
    void Look(const Application& application, DateValue first);
    PaperList OnPaper(std::string note) const;

    int RowCount() const noexcept override { return static_cast<int>(rows_.size()); }
    std::string_view CellText(int row, int column) const noexcept override;
    Colour CellColour(int, int) const noexcept override { return {}; }

private:
    using Row = std::array<std::string, kColumns>;
    void AddDay(const Application& application, DateValue day);

    std::vector<Row> rows_;
};

}  // namespace kaz
