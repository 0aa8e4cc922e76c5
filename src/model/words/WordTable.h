#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kaz {

// What a word means that says when something is.
enum class Word : std::uint8_t {
    None,
    Number,  // digits, or a number's name
    Nth,     // a day of a month or one of several weekdays: "1st", "first"
    Last,    // "last"
    Today,
    Tomorrow,
    TimeOfDay,  // "noon"; the number is the minute of the day
    Half,       // "am" and "pm"; the number is the hours to add
    DayName,    // Monday = 1
    MonthName,  // January = 1
    Minutes,
    Hours,
    Day,
    Week,
    Month,
    Year,
    Daily,  // "every day" in one word, and so on
    Weekly,
    Monthly,
    Yearly,
    Weekday,  // "weekday", Monday to Friday
    Weekend,
    Every,
    Other,  // "every other"
    Next,
    In,
    On,
    At,
    The,
    Of,
    And,
    Until,
    Times,
};

struct WordEntry {
    std::string_view text;  // in lower case
    Word word;
    int number = 0;
};

// The words of one language; each has one meaning. A further language is a further table.
struct WordTable {
    std::span<const WordEntry> words;
    std::span<const std::string_view> nthEndings;  // behind digits: "st" of "1st"

    const WordEntry* Find(std::string_view lower) const;
};

const WordTable& EnglishWords();

}  // namespace kaz
