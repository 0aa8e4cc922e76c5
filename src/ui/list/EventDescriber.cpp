#include "ui/list/EventDescriber.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "model/RuleInWords.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::size_t kLeftDigits = 4;  // so many that the column sorts as text like numbers

bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }

}  // namespace

const EventCells& EventDescriber::Describe(const VisibleEvent& seen) {
    const clsEvent& event = seen.event;
    DescribeDate(seen.due);
    std::string& description = cells_[kEventColumn];
    description = event.DescShown();
    std::replace_if(description.begin(), description.end(), IsLineBreak, ' ');

    // A file can hold any number as category. The event is listed all the same, without a name for it.
    const std::int16_t slot = event.Layer();
    cells_[kLayerColumn].clear();
    if (slot >= 0 && slot < clsLayers::kCount) cells_[kLayerColumn] = layers_.Layer(slot);

    cells_[kOwnerColumn].clear();
    if (viewpoint_.networked) cells_[kOwnerColumn] = event.Owner();
    static constexpr std::string_view kTypes[] = {"", "*", "S", "E"};
    cells_[kTypeColumn] = kTypes[static_cast<std::size_t>(seen.Type(viewpoint_.today))];
    DescribeSharing(event);
    cells_[kTimeColumn] = event.AlarmSet() ? FormatDate(event.DueTime(), "HH:NN", locale_) : std::string();
    cells_[kRepeatsColumn] =
        event.Recurring() ? RuleInWords(event, locale_, viewpoint_.dayBeforeMonth) : std::string();
    return cells_;
}

void EventDescriber::DescribeDate(DateValue due) {
    const std::int32_t daysLeft = due.Day() - viewpoint_.today.Day();
    std::string& left = cells_[kLeftColumn];
    if (daysLeft < 0) {
        left = "---";
    } else {
        left = std::to_string(daysLeft);
        if (left.size() < kLeftDigits) left.insert(0, kLeftDigits - left.size(), '0');
    }
    cells_[kDayColumn] = FormatDate(due, "DDD", locale_);
    cells_[kDateColumn] = FormatDate(due, viewpoint_.dayBeforeMonth ? "DD/MM" : "MM/DD", locale_);
    cells_[kYearColumn] = FormatDate(due, "YYYY", locale_);
}

void EventDescriber::DescribeSharing(const clsEvent& event) {
    std::string& names = cells_[kSharedWithColumn];
    names.clear();
    if (!event.SharedEvent) return;
    if (!event.ShareWithSpecific) {
        names = "All";
        return;
    }
    names = ReplaceAll(event.ShareNames, kLineBreak, ",");
    // Kept on purpose: the last character goes whatever it is, since the list is stored with a line break at
    // its end.
    if (names.size() >= 2) names.pop_back();
}

}  // namespace kaz
