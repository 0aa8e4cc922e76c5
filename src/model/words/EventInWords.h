#pragma once

#include "model/words/When.h"
#include "model/words/WordTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// A category that a line may name.
struct NamedCategory {
    std::int16_t slot = 0;
    std::string name;
};

// What a line is read with.
struct WordsContext {
    WhenView view;
    std::vector<NamedCategory> categories;
    std::int16_t category = 0;  // of an event whose line names none
    const WordTable& words = EnglishWords();
};

// The longest line that is read, in bytes.
inline constexpr std::size_t kLongestLine = 1000;

// A line such as "dentist tomorrow 15:30 !30 #Health" as an event, or why it is none.
struct EventInWords {
    std::optional<clsEvent> event;  // without an owner and a code
    std::string refusal;            // for the user, with what to write instead; "" for an empty line, too
};

// Says when are the words at the end of the line or, where they cannot be mistaken, at its beginning; the
// rest is the text, in any letters. Never throws but for want of memory; the time it takes is bounded.
EventInWords ReadInWords(std::string_view line, const WordsContext& context);

}  // namespace kaz
