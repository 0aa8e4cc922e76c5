#pragma once

#include <array>
#include <string>

namespace kaz {

// The order of day, month and year in dates written with numbers.
enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

// What the user's locale says of dates, numbers and words, as plain data: formatting and
// recognising are done by our own code, so that every locale can be tried on every machine. The
// defaults are English (United States).
struct LocaleData {
    // Sunday first.
    std::array<std::string, 7> dayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};
    std::array<std::string, 7> shortDayNames{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    std::array<std::string, 12> monthNames{"January",   "February", "March",    "April",
                                           "May",       "June",     "July",     "August",
                                           "September", "October",  "November", "December"};
    std::array<std::string, 12> shortMonthNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::string trueWord = "True";
    std::string falseWord = "False";
    std::string decimalSeparator = ".";
    std::string groupSeparator = ",";
    // In the notation of Windows: d dd ddd dddd M MM MMM MMMM y yy yyyy, quoted text in apostrophes.
    std::string shortDatePattern = "M/d/yyyy";
    // h hh H HH m mm s ss t tt.
    std::string timePattern = "h:mm:ss tt";
    std::string morning = "AM";
    std::string afternoon = "PM";

    DateOrder Order() const;
    // Whether "2.29" reads as the amount 229, that is, the full stop groups digits in this locale.
    bool CommaThousandSeparator() const { return groupSeparator == "." && decimalSeparator != "."; }
};

}  // namespace kaz
