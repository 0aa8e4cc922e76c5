#pragma once

#include "base/LocaleData.h"
#include "model/words/EventInWords.h"

#include <string>

namespace kaz {

// What was understood of a line, for the user to see before it is stored.
struct DraftInWords {
    std::string what;  // the text, the day and the time, and what goes with them
    std::string when;  // the rule, its next three dates, its end, and a word of warning
};

DraftInWords Describe(const clsEvent& event, const WordsContext& context, const LocaleData& locale);

}  // namespace kaz
