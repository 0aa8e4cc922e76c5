#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"

#include <optional>
#include <string_view>

namespace kaz {

// The day that a date means as people type one: "3/12", "3.12.2026", "3 Dec". Numbers are read in the order
// of `pattern`, such as "DD/MM/YYYY". Without a year it is the first such day from `today` on. Nothing for
// any other text, one with a time of day among them.
std::optional<DateValue> DayInShort(std::string_view text, std::string_view pattern, const LocaleData& locale,
                                    DateValue today);

}  // namespace kaz
