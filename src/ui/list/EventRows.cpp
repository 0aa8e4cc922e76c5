#include "ui/list/EventRows.h"

namespace kaz {

void EventRows::Add(const EventCells& cells, std::string_view code, EventSource source, EventType type) {
    Row row{texts_.size(), {}, source, type};
    for (std::size_t column = 0; column < cells.size(); ++column) {
        texts_ += cells[column];
        row.lengths[column] = static_cast<std::uint32_t>(texts_.size() - row.start);
    }
    texts_ += code;
    row.lengths.back() = static_cast<std::uint32_t>(texts_.size() - row.start);
    rows_.push_back(row);
}

std::string_view EventRows::Cell(std::size_t row, std::size_t column) const noexcept {
    const Row& at = rows_[row];
    const std::size_t from = column == 0 ? 0 : at.lengths[column - 1];
    return {texts_.data() + at.start + from, at.lengths[column] - from};
}

}  // namespace kaz
