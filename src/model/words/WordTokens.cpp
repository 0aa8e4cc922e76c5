#include "model/words/WordTokens.h"

#include "base/CaseFolding.h"
#include "base/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::size_t kMostDigits = 4;

bool IsBlank(char c) { return c == ' ' || IsControl(c); }

std::size_t DigitsAtStart(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    return static_cast<std::size_t>(end - text.begin());
}

void GiveMeaning(WordToken& token, const WordTable& words) {
    const std::string_view text = token.text;
    const std::size_t digits = DigitsAtStart(text);
    if (digits > 0) {
        const std::string_view ending = text.substr(digits);
        const bool isNth = std::ranges::count(words.nthEndings, ending) > 0;
        if (digits > kMostDigits || (!ending.empty() && !isNth)) return;
        token.word = isNth ? Word::Nth : Word::Number;
        token.number = std::stoi(token.text);
        return;
    }
    const WordEntry* entry = words.Find(text);
    const bool isShort = !entry && text.ends_with('.');
    if (isShort) entry = words.Find(text.substr(0, text.size() - 1));
    // A full stop belongs to the short names of days and months.
    if (!entry || (isShort && entry->word != Word::DayName && entry->word != Word::MonthName)) return;
    token.word = entry->word;
    token.number = entry->number;
}

}  // namespace

std::vector<WordToken> TokensOf(std::string_view line, const WordTable& words) {
    std::vector<WordToken> tokens;
    for (std::size_t at = 0; at < line.size();) {
        if (IsBlank(line[at])) {
            ++at;
            continue;
        }
        WordToken token;
        token.begin = at;
        while (at < line.size() && !IsBlank(line[at]))
            ++at;
        token.end = at;
        std::string_view text = line.substr(token.begin, at - token.begin);
        while (text.size() > 1 && (text.back() == ',' || text.back() == ':')) {
            (text.back() == ',' ? token.comma : token.colon) = true;
            text.remove_suffix(1);
        }
        token.text = CaseFolding::Ascii().Lower(text);
        GiveMeaning(token, words);
        tokens.push_back(std::move(token));
    }
    return tokens;
}

}  // namespace kaz
