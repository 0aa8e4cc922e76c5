#pragma once

#include "base/LocaleData.h"
#include "model/clsEvent.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What an event's rule means in days: its next dates, and a word of warning where it may surprise. It works
// on the rule alone and neither changes nor reports anything.
class RulePreview {
public:
    static constexpr int kDates = 5;

    // An empty preview.
    RulePreview() = default;
    RulePreview(const clsEvent& event, DateValue now);

    // In order; only the first for an event that is shown once; fewer or none where the rule has no more.
    const std::vector<DateValue>& Dates() const { return dates_; }
    // The last date of a series that has an end, as far as it can be told.
    std::optional<DateValue> LastDate() const { return lastDate_; }
    // The dates as one line, such as "Next dates: Wed 15/03/2023, Wed 22/03/2023", and the last one of a
    // series that has an end; "" without dates.
    std::string DatesLine(std::string_view pattern, const LocaleData& locale) const;
    // One sentence or more, "" for a rule that does what everybody expects.
    const std::string& Warning() const { return warning_; }

private:
    std::vector<DateValue> dates_;
    std::optional<DateValue> lastDate_;
    std::string warning_;
};

}  // namespace kaz
