#include "ui/event/ExtrasText.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::size_t kMostNamed = 2;

std::string EndFault(const clsEvent& event, const DateStyle& style, DateValue today) {
    const EventExtras& extras = event.Extras();
    if (!event.Recurring() || !extras.lastDay) return {};
    try {
        if (NextOccurrence(event.Rule(), extras, today, today)) return {};
        const auto first = FirstOccurrence(event.Rule(), today, today);
        if (!first) return {};
        if (!extras.EndsBefore(first->dueDate))
            return "Every date up to the last day is skipped. Please put one back, or choose a later end";
        return "The series would end on " + DayInWords(*extras.lastDay, style) +
               ", before its first date. Please choose " + DayInWords(first->dueDate, style) +
               " or a later day";
    } catch (const RuntimeError&) {
        return {};  // told where the rule is computed
    }
}

std::string WarningFault(const clsEvent& event) {
    for (const SecondWarning& warning : event.Extras().warnings) {
        if (!warning.time && !event.AlarmSet())
            return "A warning some time before the event needs its time. Please tick \"Alarm\", or choose "
                   "\"days before, at\" for the warning";
        const bool sameDay = warning.time && warning.daysBefore == 0;
        if (sameDay && event.AlarmSet() && warning.time->MinuteOfDay() >= event.DueTime().MinuteOfDay())
            return "The second warning would come when the event has begun. Please choose an earlier time";
    }
    return {};
}

}  // namespace

std::string DayInWords(DateValue day, const DateStyle& style) {
    return FormatDate(day, "DDD " + style.pattern, style.locale);
}

std::string ExtrasInWords(const clsEvent& event, const DateStyle& style) {
    const EventExtras& extras = event.Extras();
    std::string words;
    const auto add = [&words](const std::string& sentence) {
        words.append(words.empty() ? "" : "  ").append(sentence).append(".");
    };
    if (event.Recurring() && !extras.skipped.empty()) {
        std::string days;
        const std::size_t named = std::min(extras.skipped.size(), kMostNamed);
        for (std::size_t at = 0; at < named; ++at)
            days.append(at == 0 ? "" : ", ").append(DayInWords(DateValue(extras.skipped[at]), style));
        if (extras.skipped.size() > named)
            days.append(" and ").append(std::to_string(extras.skipped.size() - named)).append(" more");
        add("Not on: " + days);
    }
    if (!extras.warnings.empty())
        add(extras.warnings.size() == 1 ? "1 more warning"
                                        : std::to_string(extras.warnings.size()) + " more warnings");
    if (extras.always) add("Also in quiet hours");
    return words;
}

std::string ExtrasFault(const clsEvent& event, const DateStyle& style, DateValue today) {
    const std::string end = EndFault(event, style, today);
    return end.empty() ? WarningFault(event) : end;
}

}  // namespace kaz
