#include "ui/list/EventList.h"

#include "base/Text.h"
#include "base/Utf8.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr std::size_t kPrefix = 8;
constexpr std::uint64_t kBeyondAscii = 0x8080808080808080U;

// The first eight bytes of the text in lower case as one number that compares as they do. Nearly every
// comparison of a sort is settled by it without a look at the texts, which lie far apart in memory.
std::uint64_t PrefixOf(std::string_view text, const CaseFolding& folding) {
    constexpr std::size_t kEnough = 4 * kPrefix;  // whatever becomes of a letter's length
    std::string folded;
    if (!IsAscii(text.substr(0, kPrefix))) text = folded = folding.Lower(text.substr(0, kEnough));
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < kPrefix; ++i) {
        const char c = i < text.size() ? CaseFolding::Lower(text[i]) : '\0';
        prefix = prefix << 8 | static_cast<unsigned char>(c);
    }
    return prefix;
}

struct SortKey {
    std::uint64_t prefix;
    std::uint32_t row;
};

}  // namespace

std::vector<ReportColumn> EventList::Columns() {
    return {{"Left", 56},         {"Day", 40},   {"Date", 48},    {"Year", 44},
            {"Event", 250, true}, {"Layer", 84}, {"Owner", 64},   {"Type", 44},
            {"Shared With", 88},  {"Time", 48},  {"Repeats", 180}};
}

void EventList::Show(EventRows rows) {
    order_.clear();
    rows_ = std::move(rows);
    Sort();
}

void EventList::Narrow(std::string term) {
    term_ = std::move(term);
    Sort();
}

bool EventList::Shows(std::size_t row) const noexcept {
    if (term_.empty()) return true;
    for (const EventColumn column : {kEventColumn, kLayerColumn, kOwnerColumn})
        if (folding_.Find(rows_.Cell(row, column), term_) != std::string_view::npos) return true;
    return false;
}

// Kept on purpose: the flag flips also when another column is clicked, so the first click of all sorts
// descending.
void EventList::SortBy(int column) { SortBy(column, !ascending_); }

void EventList::SortBy(int column, bool ascending) {
    if (column < 0 || column >= kEventColumns) return;
    ascending_ = ascending;
    sortColumn_ = column;
    Sort();
}

// Texts are compared by the numbers of their letters, letter case aside, not by the rules of
// the user's language: the order is then the same on every machine, and the hyphens of "---" and
// the zeros of "0005" count, which some languages would skip. Rows with equal texts keep the
// order of the databases in both directions.
void EventList::Sort() {
    const auto column = static_cast<std::size_t>(sortColumn_);
    std::vector<SortKey> keys;
    keys.reserve(rows_.Count());
    for (std::uint32_t row = 0; row < rows_.Count(); ++row)
        if (Shows(row)) keys.push_back({PrefixOf(rows_.Cell(row, column), folding_), row});

    const auto less = [&](const SortKey& a, const SortKey& b) {
        if (a.prefix != b.prefix) return a.prefix < b.prefix;
        const std::size_t same = (a.prefix & kBeyondAscii) == 0 ? kPrefix : 0;
        const std::string_view left = rows_.Cell(a.row, column);
        const std::string_view right = rows_.Cell(b.row, column);
        if (left.size() < same || right.size() < same) return left.size() < right.size();
        return folding_.Less(left.substr(same), right.substr(same));
    };
    if (ascending_)
        std::stable_sort(keys.begin(), keys.end(), less);
    else
        std::stable_sort(keys.begin(), keys.end(),
                         [&](const SortKey& a, const SortKey& b) { return less(b, a); });

    order_.resize(keys.size());
    std::transform(keys.begin(), keys.end(), order_.begin(), [](const SortKey& key) { return key.row; });
}

std::optional<int> EventList::Find(std::string_view term, int from) const noexcept {
    for (int row = std::max(from, 0); row < RowCount(); ++row)
        if (folding_.Find(CellText(row, kEventColumn), term) != std::string_view::npos) return row;
    return std::nullopt;
}

std::optional<int> EventList::RowOf(std::string_view code, EventSource source) const noexcept {
    for (int row = 0; row < RowCount(); ++row)
        if (Source(row) == source && Trim(Code(row)) == code) return row;
    return std::nullopt;
}

std::string_view EventList::CellText(int row, int column) const noexcept {
    if (row < 0 || row >= RowCount() || column < 0 || column >= kEventColumns) return {};
    return rows_.Cell(order_[static_cast<std::size_t>(row)], static_cast<std::size_t>(column));
}

Colour EventList::CellColour(int row, int column) const noexcept {
    if (column != kEventColumn) return {};
    const std::string_view type = CellText(row, kTypeColumn);
    if (type == "E") return Colour::Rgb(255, 0, 0);
    if (type == "S") return Colour::Rgb(0, 0, 255);
    if (type == "*") return Colour::Rgb(0, 128, 0);
    return {};
}

}  // namespace kaz
