#include "base/LocaleData.h"

namespace kaz {

DateOrder LocaleData::Order() const {
    bool quoted = false;
    for (std::size_t at = 0; at < shortDatePattern.size(); ++at) {
        const char letter = shortDatePattern[at];
        if (letter == '\'') quoted = !quoted;
        if (quoted) continue;
        if (letter == 'y') return DateOrder::YearMonthDay;
        if (letter == 'M') return DateOrder::MonthDayYear;
        if (letter != 'd') continue;
        const auto end = shortDatePattern.find_first_not_of('d', at);
        const auto length = (end == std::string::npos ? shortDatePattern.size() : end) - at;
        if (length <= 2) return DateOrder::DayMonthYear;
        at += length - 1;  // three and more are the day's name
    }
    return DateOrder::MonthDayYear;
}

}  // namespace kaz
