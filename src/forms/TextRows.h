#pragma once

#include "forms/ReportList.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Rows of texts, for lists that are short enough to keep them, with a colour for the first cell of those that
// stand out.
class TextRows : public ReportRows {
public:
    struct Row {
        std::vector<std::string> cells;
        bool standsOut = false;
    };
    std::vector<Row> rows;

    int RowCount() const noexcept override { return static_cast<int>(rows.size()); }
    std::string_view CellText(int row, int column) const noexcept override {
        return rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
    }
    Colour CellColour(int row, int column) const noexcept override {
        const bool red = column == 0 && rows[static_cast<std::size_t>(row)].standsOut;
        return red ? Colour::Rgb(255, 0, 0) : Colour{};
    }
};

}  // namespace kaz
