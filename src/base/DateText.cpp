#include "base/DateText.h"

#include "base/CaseFolding.h"
#include "base/DateScanner.h"
#include "base/RuntimeError.h"
#include "base/Utf8.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::string_view kMorningOrAfternoon = "am/pm";

void AppendNumber(std::string& text, int value, std::size_t width) {
    char digits[12];
    std::size_t count = 0;
    do {
        digits[count++] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value > 0);
    text.append(width > count ? width - count : 0, '0');
    while (count > 0)
        text += digits[--count];
}

// The date's parts and the names for them: what both notations of patterns are written with.
class Writer {
public:
    Writer(std::string& text, DateValue date, const LocaleData& locale)
        : text_(text),
          locale_(locale),
          civil_(date.Civil()),
          weekday_(date.WeekdayFromSunday()),
          hour_(date.MinuteOfDay() / 60),
          minute_(date.MinuteOfDay() % 60),
          second_(date.SecondOfDay() % 60) {}

    void Day(std::size_t width) {
        const auto index = static_cast<std::size_t>(weekday_.number - 1);
        if (width <= 2)
            AppendNumber(text_, civil_.day, width);
        else
            text_ += width == 3 ? locale_.shortDayNames[index] : locale_.dayNames[index];
    }
    void Month(std::size_t width) {
        const auto index = static_cast<std::size_t>(civil_.month - 1);
        if (width <= 2)
            AppendNumber(text_, civil_.month, width);
        else
            text_ += width == 3 ? locale_.shortMonthNames[index] : locale_.monthNames[index];
    }
    void Year(std::size_t width) { AppendNumber(text_, width <= 2 ? civil_.year % 100 : civil_.year, width); }
    void Hour(std::size_t width, bool twelve) {
        AppendNumber(text_, twelve ? (hour_ + 11) % 12 + 1 : hour_, width);
    }
    void Minute(std::size_t width) { AppendNumber(text_, minute_, width); }
    void Second(std::size_t width) { AppendNumber(text_, second_, width); }

    bool Afternoon() const { return hour_ >= 12; }
    // Whether two digits of the year are read as this year again.
    bool YearNeedsNoCentury() const { return civil_.year >= 1930 && civil_.year <= 2029; }

private:
    std::string& text_;
    const LocaleData& locale_;
    CivilDate civil_;
    SundayWeekday weekday_;
    int hour_, minute_, second_;
};

std::size_t RunLength(std::string_view pattern, std::size_t at, std::size_t most) {
    const char letter = CaseFolding::Lower(pattern[at]);
    std::size_t length = 1;
    while (length < most && at + length < pattern.size() &&
           CaseFolding::Lower(pattern[at + length]) == letter)
        ++length;
    return length;
}

bool Mentions(std::string_view text, std::string_view word) {
    return CaseFolding::Ascii().Find(text, word) != std::string_view::npos;
}

// A pattern in the notation of Windows, where case tells months from minutes
// and quoted text stands for itself.
void AppendByWindowsPattern(std::string& text, DateValue date, std::string_view pattern,
                            const LocaleData& locale) {
    Writer writer(text, date, locale);
    const std::string& half = writer.Afternoon() ? locale.afternoon : locale.morning;
    bool quoted = false;
    for (std::size_t at = 0; at < pattern.size();) {
        const char letter = pattern[at];
        if (letter == '\'') {
            const bool doubled = at + 1 < pattern.size() && pattern[at + 1] == '\'';
            if (doubled)
                text += '\'';
            else
                quoted = !quoted;
            at += doubled ? 2 : 1;
            continue;
        }
        const auto end = std::min(pattern.find_first_not_of(letter, at), pattern.size());
        const std::size_t run = quoted ? 1 : end - at;
        at += run;
        switch (quoted ? '\'' : letter) {
        case 'd': writer.Day(std::min<std::size_t>(run, 4)); break;
        case 'M': writer.Month(std::min<std::size_t>(run, 4)); break;
        // A year that two digits would put into another century is written out.
        case 'y': writer.Year(run > 2 || !writer.YearNeedsNoCentury() ? 4 : run); break;
        case 'h': writer.Hour(std::min<std::size_t>(run, 2), true); break;
        case 'H': writer.Hour(std::min<std::size_t>(run, 2), false); break;
        case 'm': writer.Minute(std::min<std::size_t>(run, 2)); break;
        case 's': writer.Second(std::min<std::size_t>(run, 2)); break;
        case 't': text += run == 1 ? half.substr(0, FirstLetter(half).length) : half; break;
        default: text.append(run, letter);
        }
    }
}

}  // namespace

std::string FormatDate(DateValue date, std::string_view pattern, const LocaleData& locale) {
    const CaseFolding& folding = CaseFolding::Ascii();
    const bool twelve = Mentions(pattern, kMorningOrAfternoon);
    std::string text;
    Writer writer(text, date, locale);
    enum class Last { Other, Hour, HourAndColon } last = Last::Other;
    for (std::size_t at = 0; at < pattern.size();) {
        const char letter = folding.Lower(pattern[at]);
        if (letter == 'a' &&
            folding.Equal(pattern.substr(at, kMorningOrAfternoon.size()), kMorningOrAfternoon)) {
            const std::string_view half = writer.Afternoon() ? "PM" : "AM";
            text += pattern[at] == 'A' ? std::string(half) : folding.Lower(half);
            at += kMorningOrAfternoon.size();
            last = Last::Other;
            continue;
        }
        const bool minutes = letter == 'n' || (letter == 'm' && last == Last::HourAndColon);
        const bool pairs = minutes || letter == 'h' || letter == 's';
        std::size_t run = RunLength(pattern, at, pairs ? 2 : 4);
        if (letter == 'y') run = run == 1 ? 0 : run & ~std::size_t{1};  // YYY is YY and a Y of its own
        if (minutes)
            writer.Minute(run);
        else if (letter == 'd')
            writer.Day(run);
        else if (letter == 'm')
            writer.Month(run);
        else if (letter == 'y' && run > 0)
            writer.Year(run);
        else if (letter == 'h')
            writer.Hour(run, twelve);
        else if (letter == 's')
            writer.Second(run);
        else {
            run = 1;
            text += pattern[at];
        }
        if (letter == 'h')
            last = Last::Hour;
        else
            last = letter == ':' && last == Last::Hour ? Last::HourAndColon : Last::Other;
        at += run;
    }
    return text;
}

void AppendIsoDate(std::string& text, DateValue date) {
    const CivilDate civil = date.Civil();
    AppendNumber(text, civil.year, 4);
    text += '-';
    AppendNumber(text, civil.month, 2);
    text += '-';
    AppendNumber(text, civil.day, 2);
}

void AppendIsoDateTime(std::string& text, DateValue date) {
    AppendIsoDate(text, date);
    text += ' ';
    AppendNumber(text, date.MinuteOfDay() / 60, 2);
    text += ':';
    AppendNumber(text, date.MinuteOfDay() % 60, 2);
}

std::string GeneralDateText(DateValue date, const LocaleData& locale) {
    std::string text;
    if (date.Day() != 0) AppendByWindowsPattern(text, date, locale.shortDatePattern, locale);
    if (date.Day() != 0 && date.SecondOfDay() == 0) return text;
    if (!text.empty()) text += ' ';
    AppendByWindowsPattern(text, date, locale.timePattern, locale);
    return text;
}

std::optional<DateValue> RecogniseDate(std::string_view text, const LocaleData& locale) {
    return DateScanner(text, locale).Scan();
}

DateValue TextToDate(std::string_view text, const LocaleData& locale) {
    if (const auto date = RecogniseDate(text, locale)) return *date;
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

}  // namespace kaz
