#include "model/words/EventInWords.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "model/words/LineOptions.h"
#include "model/words/WhenReader.h"
#include "model/words/WordTokens.h"

#include <algorithm>
#include <span>

namespace kaz {

namespace {

// The longest way to say when, with all weekdays and an end, has fewer.
constexpr std::size_t kMostTokens = 40;
constexpr std::size_t kLongestExample = 40;

EventInWords Refused(std::string why) { return {std::nullopt, std::move(why)}; }

class LineReader {
public:
    LineReader(std::string_view line, const WordsContext& context) : line_(line), context_(context) {}
    EventInWords Read();

private:
    using Tokens = std::span<const WordToken>;
    struct Found {
        When when;
        std::string text;
        std::string_view said;  // of when
    };

    EventInWords ReadQuoted(std::size_t end);
    std::optional<When> ReadWhen(Tokens tokens) const {
        return WhenReader(tokens, context_.words, context_.view).Read();
    }
    std::optional<Found> AtEnd(Tokens tokens) const;
    std::optional<Found> AtBeginning(Tokens tokens) const;
    std::string TextOf(Tokens tokens) const;
    EventInWords Draft(const Found& found, const LineOptions& options) const;
    std::string SayWhen(Tokens tokens) const;

    std::string_view line_;
    const WordsContext& context_;
};

EventInWords LineReader::Read() {
    line_ = Trim(line_);
    if (line_.empty()) return {};
    if (line_.size() > kLongestLine)
        return Refused("This is too long to be read: a line may have " + std::to_string(kLongestLine) +
                       " characters. Open the editor for a longer text.");
    const std::size_t quote = line_.front() == '"' ? line_.rfind('"') : 0;
    if (quote > 0) return ReadQuoted(quote);

    std::vector<WordToken> tokens = TokensOf(line_, context_.words);
    const std::vector<WordToken> all = tokens;
    const LineOptions options = LineOptions::TakeFrom(line_, tokens, context_);
    if (tokens.empty() || (tokens.size() <= kMostTokens && ReadWhen(tokens)))
        return Refused(
            "What is it about? Write it before or behind: \"dentist tomorrow 15:30\" or \"tomorrow "
            "15:30 dentist\".");
    auto found = AtEnd(tokens);
    const auto first = AtBeginning(tokens);
    if (found && first)
        return Refused("Both the beginning and the end say when. Write only one of them, or the text in "
                       "quotes: \"" +
                       found->text + "\" " + std::string(found->said) + ".");
    if (!found) found = first;
    return found ? Draft(*found, options) : Refused(SayWhen(all));
}

// In quotes nothing says when.
EventInWords LineReader::ReadQuoted(std::size_t end) {
    const std::string text = OneLine(line_.substr(1, end - 1));
    line_.remove_prefix(end + 1);
    std::vector<WordToken> tokens = TokensOf(line_, context_.words);
    const LineOptions options = LineOptions::TakeFrom(line_, tokens, context_);
    if (text.empty()) return Refused("There is nothing in the quotes. Write the text, such as \"dentist\".");
    auto when = tokens.size() <= kMostTokens ? ReadWhen(tokens) : std::nullopt;
    if (!when)
        return Refused("Say when, behind the quotes: \"" + Beginning(text, kLongestExample) +
                       "\" tomorrow 15:30.");
    return Draft({std::move(*when), text, {}}, options);
}

std::optional<LineReader::Found> LineReader::AtEnd(Tokens tokens) const {
    const std::size_t least = tokens.size() > kMostTokens ? tokens.size() - kMostTokens : 1;
    for (std::size_t at = least; at < tokens.size(); ++at) {
        auto when = ReadWhen(tokens.subspan(at));
        if (!when) continue;
        // More was said of when than can be read.
        const Word before = tokens[at - 1].word;
        if (before == Word::Every || before == Word::Other || before == Word::Until) return std::nullopt;
        return Found{std::move(*when), TextOf(tokens.first(at)), line_.substr(tokens[at].begin)};
    }
    return std::nullopt;
}

std::optional<LineReader::Found> LineReader::AtBeginning(Tokens tokens) const {
    for (std::size_t count = std::min(tokens.size() - 1, kMostTokens); count > 0; --count) {
        auto when = ReadWhen(tokens.first(count));
        if (!when) continue;
        if (when->isWeak && !when->time && !tokens[count - 1].Marked()) return std::nullopt;
        return Found{std::move(*when), TextOf(tokens.subspan(count)), {}};
    }
    return std::nullopt;
}

// As it was typed, without a mark at its end.
std::string LineReader::TextOf(Tokens tokens) const {
    const std::size_t begin = tokens.front().begin;
    std::string_view text = line_.substr(begin, tokens.back().end - begin);
    while (text.size() > 1 && (text.back() == ',' || text.back() == ':'))
        text.remove_suffix(1);
    return std::string(text);
}

EventInWords LineReader::Draft(const Found& found, const LineOptions& options) const {
    clsEvent event;
    event.Desc(OneLine(found.text));
    if (std::string fault = Decide(found.when, context_.view, event); !fault.empty())
        return Refused(std::move(fault));
    if (std::string fault = options.Apply(context_, event); !fault.empty()) return Refused(std::move(fault));
    return {std::move(event), {}};
}

std::string LineReader::SayWhen(Tokens tokens) const {
    std::string text = TextOf(tokens);
    if (text.size() > kLongestExample) text = "dentist";
    return "Say when, at the end or at the beginning: \"" + text + " tomorrow 15:30\" or \"tomorrow 15:30 " +
           text + "\".";
}

}  // namespace

EventInWords ReadInWords(std::string_view line, const WordsContext& context) {
    try {
        return LineReader(line, context).Read();
    } catch (const RuntimeError&) {
        return Refused("This would be beyond the years that a calendar has. Write a nearer day.");
    }
}

}  // namespace kaz
