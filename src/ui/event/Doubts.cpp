#include "ui/event/Doubts.h"

#include "base/Text.h"
#include "model/RulePreview.h"
#include "ui/event/ExtrasText.h"

namespace kaz {

std::optional<DateValue> PassedDay(const clsEvent& event, DateValue today) {
    const RecurrenceRule rule = event.Rule();
    const bool starts =
        rule.type == RecurEveryNMonths || rule.type == RecurEveryNWeeks || rule.type == RecurEveryNDays;
    const bool passed = starts && !event.Recurring() && rule.startDate < today;
    return passed ? std::optional(rule.startDate) : std::nullopt;
}

std::vector<Doubt> DoubtsOf(const clsEvent& event, const clsEvent& before, const DateStyle& style,
                            DateValue now) {
    std::vector<Doubt> doubts;
    const bool isNewText = event.IDCode.empty() || event.Desc() != before.Desc();
    if (isNewText && Trim(event.Desc()).empty())
        doubts.push_back({"The event has no description. Save it without one?"});
    if (const auto passed = PassedDay(event, now.DateOnly())) {
        const std::vector<DateValue> dates = RulePreview(event, now).Dates();
        doubts.push_back(
            {DayInWords(*passed, style) + " has passed. Save the event for " +
                 (dates.empty() ? "that day all the same?" : DayInWords(dates.front(), style) + " instead?"),
             true});
    }
    return doubts;
}

}  // namespace kaz
