// Any bytes as a line in words: it becomes an event that can be stored and described, or is refused in words,
// and its text in quotes is never read for a time.

#include "fuzz/Require.h"
#include "model/RuleInWords.h"
#include "model/words/DraftInWords.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaz;
    const std::string line(reinterpret_cast<const char*>(data), size);
    for (const bool dayBeforeMonth : {false, true}) {
        const WordsContext context{
            {DateValue(46348, 32400), dayBeforeMonth}, {{3, "Work"}, {7, "Night shift"}}, 1};
        const EventInWords read = ReadInWords(line, context);
        Require(!read.event || read.refusal.empty(), "an event, and why it is none");
        if (!read.event) continue;
        const clsEvent& event = *read.event;
        Require(!event.Desc().empty() && line.find(event.Desc().substr(0, 1)) != std::string::npos,
                "a text from nowhere");
        Require(event.DueDate() >= DateValue(46348), "a day that has passed");
        Require(!RuleInWords(event, {}, dayBeforeMonth).empty(), "a rule without words");
        Describe(event, context, {});
        const EventInWords quoted = ReadInWords("\"" + line + "\" today", context);
        Require(quoted.event || line.size() + 8 > kLongestLine || line.find('"') != std::string::npos,
                "what stands in quotes was read");
    }
    return 0;
}
