#include "hosts/kaz2/mail/MailText.h"

#include "base/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::string_view kWordStart = "=?UTF-8?Q?";
constexpr std::string_view kWordEnd = "?=";
constexpr std::size_t kLongestPlain = 60;
constexpr std::size_t kLongestInWord = 52;  // a word has 75 characters at most, and "Subject: " goes before
constexpr std::size_t kLongestLine = 75;    // and the "=" that says that it goes on

bool IsLetterOrDigit(char c) { return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::string Escaped(char c) {
    const unsigned byte = static_cast<unsigned char>(c);
    return {'=', HexDigit(byte >> 4U), HexDigit(byte)};
}

std::string EncodedWords(std::string_view text) {
    std::string words(kWordStart);
    std::size_t used = 0;
    while (!text.empty()) {
        // A character stands in one word with all its bytes, or a reader shows two broken ones.
        std::string character;
        do {
            const char c = text.front();
            text.remove_prefix(1);
            character += c == ' ' ? "_" : IsLetterOrDigit(c) ? std::string(1, c) : Escaped(c);
        } while (!text.empty() && IsContinuation(text.front()) && character.size() < 12);
        if (used + character.size() > kLongestInWord) {
            words.append(kWordEnd).append("\r\n ").append(kWordStart);
            used = 0;
        }
        words += character;
        used += character.size();
    }
    return words.append(kWordEnd);
}

// One line without its end. Blanks at the end would get lost on the way.
void AppendQuotedLine(std::string& quoted, std::string_view line) {
    std::size_t used = 0;
    for (std::size_t index = 0; index < line.size(); ++index) {
        const char c = line[index];
        const bool isBlank = c == ' ' || c == '\t';
        const bool asIs = (c > ' ' && c < '\x7f' && c != '=') || (isBlank && index + 1 < line.size());
        const std::string piece = asIs ? std::string(1, c) : Escaped(c);
        if (used + piece.size() > kLongestLine) {
            quoted += "=\r\n";
            used = 0;
        }
        quoted += piece;
        used += piece.size();
    }
    quoted += "\r\n";
}

}  // namespace

std::string_view TrimmedMailText(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

std::string OneLineOf(std::string_view text) {
    std::string line;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '\n' && index > 0 && text[index - 1] == '\r') continue;
        line += IsControl(text[index]) || text[index] == '\x7f' ? ' ' : text[index];
    }
    return line;
}

std::string HeaderText(std::string_view text) {
    const std::string line = OneLineOf(text);
    const bool isPlain = line.size() <= kLongestPlain && line.find("=?") == line.npos &&
                         std::ranges::all_of(line, [](char c) { return c > 0; });
    return isPlain ? line : EncodedWords(line);
}

std::string QuotedPrintable(std::string_view text) {
    std::string quoted;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        AppendQuotedLine(quoted, text.substr(0, end));
        text.remove_prefix(end);
        text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, text.size()));
    }
    return quoted;
}

}  // namespace kaz
