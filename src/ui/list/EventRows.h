#pragma once

#include "storage/VisibleEvents.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The columns of the main list, in the order in which they are made.
enum EventColumn {
    kLeftColumn,
    kDayColumn,
    kDateColumn,
    kYearColumn,
    kEventColumn,
    kLayerColumn,
    kOwnerColumn,
    kTypeColumn,
    kSharedWithColumn,
    kTimeColumn,
    kRepeatsColumn,
    kEventColumns
};

using EventCells = std::array<std::string, kEventColumns>;

// The texts of many rows, one behind the other in a single block: ten thousand rows are two
// allocations and less than two megabytes. Rows keep the order of their adding and hold no
// reference to the events they came from.
class EventRows {
public:
    void Add(const EventCells& cells, std::string_view code, EventSource source, EventType type);

    std::size_t Count() const noexcept { return rows_.size(); }
    // `row` must be less than Count().
    std::string_view Cell(std::size_t row, std::size_t column) const noexcept;
    // The identity code of the row's event.
    std::string_view Code(std::size_t row) const noexcept { return Cell(row, kEventColumns); }
    EventSource Source(std::size_t row) const noexcept { return rows_[row].source; }
    EventType Type(std::size_t row) const noexcept { return rows_[row].type; }

private:
    struct Row {
        std::size_t start;                                     // of the first cell in texts_
        std::array<std::uint32_t, kEventColumns + 1> lengths;  // of the cells, then of the code, summed up
        EventSource source;
        EventType type;
    };
    std::vector<Row> rows_;
    std::string texts_;
};

}  // namespace kaz
