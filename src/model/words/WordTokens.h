#pragma once

#include "model/words/WordTable.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// One piece of a line between blanks.
struct WordToken {
    std::size_t begin = 0;  // in the line, with the marks behind it
    std::size_t end = 0;
    std::string text;  // in lower case, without a comma or a colon behind it
    bool comma = false;
    bool colon = false;
    Word word = Word::None;
    int number = 0;

    bool Marked() const { return comma || colon; }
};

// The pieces of the line in order. Letters beyond ASCII keep their case, and any byte below a blank counts as
// one.
std::vector<WordToken> TokensOf(std::string_view line, const WordTable& words);

}  // namespace kaz
