#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// Formats by a pattern in the program's own notation, letters in either case:
//   D DD day of month, DDD DDDD day name, M MM month, MMM MMMM month name, YY YYYY year, H HH hour of 24,
//   N NN minute (also M MM right after an hour and a colon), S SS second, AM/PM or am/pm (switches to 12
//   hours).
// Every other character stands for itself; digits never depend on the locale.
std::string FormatDate(DateValue date, std::string_view pattern, const LocaleData& locale);

// "YYYY-MM-DD" and "YYYY-MM-DD HH:MM", the forms of the files, without any look at the locale.
void AppendIsoDate(std::string& text, DateValue date);
void AppendIsoDateTime(std::string& text, DateValue date);

// The default text form: the locale's short date, the time, or both with a blank between; a part that is zero
// is left out (midnight of day zero shows its time).
std::string GeneralDateText(DateValue date, const LocaleData& locale);

// Recognises a date, a time or both: "YYYY-MM-DD[ HH:MM[:SS]]" in every locale; dates in the locale's order
// with
// "/", "-", "." or blanks between, month names in full or short; times with ":" and an optional AM/PM.
// Nothing when the text is no date.
std::optional<DateValue> RecogniseDate(std::string_view text, const LocaleData& locale);

// As above, but throws TypeMismatch when the text is no date.
DateValue TextToDate(std::string_view text, const LocaleData& locale);

}  // namespace kaz
