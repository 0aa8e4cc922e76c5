#include "model/words/LineOptions.h"

#include "base/Text.h"
#include "model/AlarmTime.h"

#include <algorithm>
#include <charconv>

namespace kaz {

namespace {

constexpr int kMostDaysWarning = 999;
constexpr std::size_t kMostWords = 8;  // of a category's name
constexpr std::size_t kMostNames = 6;

// -1 when the text is no number of up to four digits.
int NumberIn(std::string_view text) {
    int number = -1;
    if (text.empty() || text.size() > 4 || !std::ranges::all_of(text, IsDigit)) return -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

LineOptions LineOptions::TakeFrom(std::string_view line, std::vector<WordToken>& tokens,
                                  const WordsContext& context) {
    LineOptions options;
    while (!tokens.empty() && options.TakeLast(line, tokens, context)) {
    }
    return options;
}

bool LineOptions::TakeLast(std::string_view line, std::vector<WordToken>& tokens,
                           const WordsContext& context) {
    const std::string text = tokens.back().text;
    int* const number = text[0] == '!' ? &minutes : text[0] == '~' ? &days : nullptr;
    if (!number) return TakeCategory(line, tokens, context);
    const int value = NumberIn(std::string_view(text).substr(1));
    if (value < 0) return false;
    if (*number >= 0) fault = "\"" + text.substr(0, 1) + "\" stands there twice. Write one of them.";
    *number = value;
    tokens.pop_back();
    return true;
}

// A name may have blanks, so the piece with the mark need not be the last.
bool LineOptions::TakeCategory(std::string_view line, std::vector<WordToken>& tokens,
                               const WordsContext& context) {
    const std::size_t most = std::min(tokens.size(), kMostWords);
    for (std::size_t count = 1; count <= most; ++count) {
        const std::size_t first = tokens.size() - count;
        if (tokens[first].text[0] != '#') continue;
        const std::size_t begin = tokens[first].begin + 1;
        const std::string_view name = line.substr(begin, tokens.back().end - begin);
        const auto named = std::ranges::find_if(context.categories, [name](const NamedCategory& candidate) {
            return StringsEqual(candidate.name, name);
        });
        const bool isKnown = named != context.categories.end();
        if (!isKnown && count > 1) continue;
        if (!isKnown)
            fault = "There is no category \"" + std::string(name) + "\". Write " + NamesOf(context) +
                    ", or leave it out.";
        else if (category >= 0)
            fault = "Two categories are named. Write one of them.";
        else
            category = named->slot;
        tokens.resize(first);
        return true;
    }
    return false;
}

std::string LineOptions::NamesOf(const WordsContext& context) {
    std::string names;
    for (std::size_t at = 0; at < std::min(context.categories.size(), kMostNames); ++at)
        names.append(at == 0 ? "#" : ", #").append(context.categories[at].name);
    return names;
}

std::string LineOptions::Apply(const WordsContext& context, clsEvent& event) const {
    if (!fault.empty()) return fault;
    event.Layer(category >= 0 ? category : context.category);
    if (minutes > kMostMinutesWarning)
        return "The longest warning is 60 minutes. Write \"!60\", or \"~1\" to be told a day ahead.";
    if (minutes >= 0 && !event.AlarmSet())
        return "\"!" + std::to_string(minutes) + "\" needs a time. Write one, such as \"15:30 !" +
               std::to_string(minutes) + "\", or \"~1\" to be told a day ahead.";
    if (days > kMostDaysWarning) return "Write \"~0\" to \"~999\" for the days of warning.";
    event.DaysWarning(static_cast<std::int16_t>(std::max(days, 0)));
    event.MinutesWarning(static_cast<std::int16_t>(std::max(minutes, 0)));
    if (event.AlarmSet()) event.AlarmTime(AlarmBefore(event.DueTime(), event.MinutesWarning()).time);
    return {};
}

}  // namespace kaz
