#include "model/words/WordTable.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr WordEntry kEnglish[] = {
    {"today", Word::Today},
    {"tomorrow", Word::Tomorrow},
    {"noon", Word::TimeOfDay, 12 * 60},
    {"am", Word::Half, 0},
    {"pm", Word::Half, 12},

    {"monday", Word::DayName, 1},
    {"mon", Word::DayName, 1},
    {"tuesday", Word::DayName, 2},
    {"tues", Word::DayName, 2},
    {"tue", Word::DayName, 2},
    {"wednesday", Word::DayName, 3},
    {"wed", Word::DayName, 3},
    {"thursday", Word::DayName, 4},
    {"thurs", Word::DayName, 4},
    {"thur", Word::DayName, 4},
    {"thu", Word::DayName, 4},
    {"friday", Word::DayName, 5},
    {"fri", Word::DayName, 5},
    {"saturday", Word::DayName, 6},
    {"sat", Word::DayName, 6},
    {"sunday", Word::DayName, 7},
    {"sun", Word::DayName, 7},

    {"january", Word::MonthName, 1},
    {"jan", Word::MonthName, 1},
    {"february", Word::MonthName, 2},
    {"feb", Word::MonthName, 2},
    {"march", Word::MonthName, 3},
    {"mar", Word::MonthName, 3},
    {"april", Word::MonthName, 4},
    {"apr", Word::MonthName, 4},
    {"may", Word::MonthName, 5},
    {"june", Word::MonthName, 6},
    {"jun", Word::MonthName, 6},
    {"july", Word::MonthName, 7},
    {"jul", Word::MonthName, 7},
    {"august", Word::MonthName, 8},
    {"aug", Word::MonthName, 8},
    {"september", Word::MonthName, 9},
    {"sept", Word::MonthName, 9},
    {"sep", Word::MonthName, 9},
    {"october", Word::MonthName, 10},
    {"oct", Word::MonthName, 10},
    {"november", Word::MonthName, 11},
    {"nov", Word::MonthName, 11},
    {"december", Word::MonthName, 12},
    {"dec", Word::MonthName, 12},

    {"a", Word::Number, 1},
    {"an", Word::Number, 1},
    {"one", Word::Number, 1},
    {"two", Word::Number, 2},
    {"three", Word::Number, 3},
    {"four", Word::Number, 4},
    {"five", Word::Number, 5},
    {"six", Word::Number, 6},
    {"first", Word::Nth, 1},
    {"second", Word::Nth, 2},
    {"third", Word::Nth, 3},
    {"fourth", Word::Nth, 4},
    {"last", Word::Last},

    {"minutes", Word::Minutes},
    {"minute", Word::Minutes},
    {"min", Word::Minutes},
    {"hours", Word::Hours},
    {"hour", Word::Hours},
    {"days", Word::Day},
    {"day", Word::Day},
    {"weeks", Word::Week},
    {"week", Word::Week},
    {"months", Word::Month},
    {"month", Word::Month},
    {"years", Word::Year},
    {"year", Word::Year},
    {"daily", Word::Daily},
    {"weekly", Word::Weekly},
    {"monthly", Word::Monthly},
    {"yearly", Word::Yearly},
    {"weekday", Word::Weekday},
    {"weekend", Word::Weekend},

    {"every", Word::Every},
    {"each", Word::Every},
    {"other", Word::Other},
    {"next", Word::Next},
    {"in", Word::In},
    {"on", Word::On},
    {"at", Word::At},
    {"the", Word::The},
    {"of", Word::Of},
    {"and", Word::And},
    {"until", Word::Until},
    {"till", Word::Until},
    {"times", Word::Times},
};

constexpr std::string_view kEnglishEndings[] = {"st", "nd", "rd", "th"};

}  // namespace

const WordEntry* WordTable::Find(std::string_view lower) const {
    const auto found = std::find_if(words.begin(), words.end(),
                                    [lower](const WordEntry& entry) { return entry.text == lower; });
    return found == words.end() ? nullptr : &*found;
}

const WordTable& EnglishWords() {
    static constexpr WordTable kTable{kEnglish, kEnglishEndings};
    return kTable;
}

}  // namespace kaz
