#include "base/DayInShort.h"

#include "base/DateText.h"
#include "base/Text.h"

#include <string>

namespace kaz {

namespace {

// As long as it can take to the next 29 February.
constexpr int kYears = 8;

}  // namespace

std::optional<DateValue> DayInShort(std::string_view text, std::string_view pattern, const LocaleData& locale,
                                    DateValue today) {
    LocaleData ordered = locale;
    ordered.shortDatePattern = pattern.starts_with('D') ? "d/M/yyyy" : "M/d/yyyy";
    const std::string typed(Trim(text));
    if (const auto whole = RecogniseDate(typed, ordered))
        return whole->Day() != 0 && whole->SecondOfDay() == 0 ? whole : std::nullopt;
    for (int year = 0; year <= kYears; ++year) {
        const auto day = RecogniseDate(typed + " " + std::to_string(today.Civil().year + year), ordered);
        if (day && *day >= today) return day;
    }
    return std::nullopt;
}

}  // namespace kaz
