#include "storage/SideLine.h"

#include "base/CodePage.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "storage/ContentHash.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace kaz {

namespace {

constexpr std::size_t kFields = 6;

// What would break a line, and what is no ASCII: the file is UTF-8 whatever the code page is.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x20 && code < 0x7F && c != '%')
            escaped += c;
        else
            escaped.append({'%', HexDigit(code >> 4U), HexDigit(code)});
    }
    return escaped;
}

std::optional<std::string> Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            plain += text[i];
            continue;
        }
        const int high = i + 2 < text.size() ? HexValue(text[i + 1]) : -1;
        const int low = i + 2 < text.size() ? HexValue(text[i + 2]) : -1;
        if (high < 0 || low < 0) return std::nullopt;
        plain += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return plain;
}

// All of it digits.
std::optional<int> Number(std::string_view digits) {
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size() || digits.empty() || digits[0] == '-')
        return std::nullopt;
    return number;
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

std::string CheckOf(const clsEvent& event) {
    const RecurrenceRule rule = event.Rule();
    ContentHash hash;
    std::string room;
    hash.Add(CodePage::OfSystem().BytesOf(event.Desc(), room));
    for (const std::int32_t value :
         {std::int32_t{event.Recurring()}, rule.type, std::int32_t{rule.weekDays},
          std::int32_t{rule.dayOfMonth}, std::int32_t{rule.monthNumber}, std::int32_t{rule.period},
          std::int32_t{rule.dayNumber}, std::int32_t{rule.dayOfWeek}})
        hash.Add(static_cast<std::uint32_t>(value));
    std::string digits;
    for (unsigned shift = 32; shift > 0; shift -= 4)
        digits += HexDigit(static_cast<unsigned>(hash.Value() >> (shift - 4)));
    return digits;
}

std::optional<SideLine> SideLine::Parse(std::string_view text) {
    std::array<std::string, kFields> fields;
    std::size_t count = 0;
    for (const std::string_view field : Split(text, "\t")) {
        auto plain = count < kFields ? Unescaped(field) : std::nullopt;
        if (!plain) return std::nullopt;
        fields[count++] = std::move(*plain);
    }
    if (count != kFields || fields[0].empty()) return std::nullopt;
    const auto day = SideMoment(fields[4]);
    if (!day && !fields[4].empty()) return std::nullopt;
    return SideLine{fields[0], {fields[1], fields[2], fields[3]}, day, fields[5]};
}

std::string SideLine::Text() const {
    std::string text = Escaped(verb);
    for (const std::string& field : {key.file, key.code, key.check, day ? SideDay(*day) : "", argument})
        text.append("\t").append(Escaped(field));
    return text;
}

std::string SideDay(DateValue day) {
    const CivilDate civil = day.Civil();
    std::string year = std::to_string(civil.year);
    return std::string(4 - std::min<std::size_t>(year.size(), 4), '0') + year + "-" + TwoDigits(civil.month) +
           "-" + TwoDigits(civil.day);
}

std::string SideTime(DateValue time) {
    return SideDay(time) + " " + TwoDigits(time.MinuteOfDay() / 60) + ":" +
           TwoDigits(time.MinuteOfDay() % 60);
}

std::optional<DateValue> SideMoment(std::string_view text) {
    const bool timed = text.size() == 16;
    if ((text.size() != 10 && !timed) || text[4] != '-' || text[7] != '-') return std::nullopt;
    if (timed && (text[10] != ' ' || text[13] != ':')) return std::nullopt;
    const auto year = Number(text.substr(0, 4));
    const auto month = Number(text.substr(5, 2));
    const auto day = Number(text.substr(8, 2));
    const auto hour = timed ? Number(text.substr(11, 2)) : 0;
    const auto minute = timed ? Number(text.substr(14, 2)) : 0;
    if (!year || !month || !day || !hour || !minute) return std::nullopt;
    if (*year < 100 || *month < 1 || *month > 12 || *hour > 23 || *minute > 59) return std::nullopt;
    const DateValue date = DateValue::FromCivil(*year, *month, *day);
    if (date.Civil() != CivilDate{*year, *month, *day}) return std::nullopt;
    return DateValue(date.Day(), (*hour * 60 + *minute) * 60);
}

}  // namespace kaz
