#include "model/words/DraftInWords.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "model/RuleInWords.h"
#include "model/RulePreview.h"

#include <algorithm>
#include <cctype>

namespace kaz {

namespace {

constexpr std::size_t kDates = 3;
constexpr std::size_t kLongestText = 80;

std::string Day(DateValue day, const WordsContext& context, const LocaleData& locale) {
    return FormatDate(day, context.view.dayBeforeMonth ? "DDD D MMM YYYY" : "DDD MMM D YYYY", locale);
}

std::string What(const clsEvent& event, const WordsContext& context, const LocaleData& locale) {
    std::string what = Beginning(event.Desc(), kLongestText) + ":  " + Day(event.DueDate(), context, locale);
    if (!event.AlarmSet())
        what += ", no alarm";
    else if (event.MinutesWarning() > 0)
        what += ", " + FormatDate(event.DueTime(), "HH:NN", locale) + " (rings at " +
                FormatDate(event.AlarmTime(), "HH:NN", locale) + ")";
    else
        what += ", " + FormatDate(event.DueTime(), "HH:NN", locale);
    if (event.DaysWarning() > 0)
        what += ", announced " + std::to_string(event.DaysWarning()) +
                (event.DaysWarning() == 1 ? " day" : " days") + " ahead";
    const auto named = std::ranges::find(context.categories, event.Layer(),
                                         [](const NamedCategory& each) { return each.slot; });
    if (named != context.categories.end()) what += ", " + named->name;
    return what;
}

std::string WhenOf(const clsEvent& event, const WordsContext& context, const LocaleData& locale) {
    const RulePreview preview(event, context.view.now);
    std::string when = RuleInWords(event, locale, context.view.dayBeforeMonth);
    if (!when.empty()) when[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(when[0])));
    if (event.Recurring()) {
        for (std::size_t at = 0; at < std::min(preview.Dates().size(), kDates); ++at)
            when += (at == 0 ? ":  " : ",  ") + Day(preview.Dates()[at], context, locale);
        if (const auto last = preview.LastDate()) when += "  Last date:  " + Day(*last, context, locale);
    }
    return when + (preview.Dates().size() > kDates ? " ..." : ".") +
           (preview.Warning().empty() ? "" : "  " + preview.Warning());
}

}  // namespace

DraftInWords Describe(const clsEvent& event, const WordsContext& context, const LocaleData& locale) {
    return {What(event, context, locale), WhenOf(event, context, locale)};
}

}  // namespace kaz
