#pragma once

#include "model/words/EventInWords.h"
#include "model/words/WordTokens.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What stands at the very end of a line: "!30", "~7" and "#Category", in any order.
struct LineOptions {
    int minutes = -1;  // of warning; -1 where nothing is said
    int days = -1;
    std::int16_t category = -1;
    std::string fault;

    // Takes them from the tokens of the line.
    static LineOptions TakeFrom(std::string_view line, std::vector<WordToken>& tokens,
                                const WordsContext& context);
    // Puts them into an event whose time is decided. Why they cannot be, or an empty text.
    std::string Apply(const WordsContext& context, clsEvent& event) const;

private:
    bool TakeLast(std::string_view line, std::vector<WordToken>& tokens, const WordsContext& context);
    bool TakeCategory(std::string_view line, std::vector<WordToken>& tokens, const WordsContext& context);
    static std::string NamesOf(const WordsContext& context);
};

}  // namespace kaz
