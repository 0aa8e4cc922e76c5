#include "base/Utf8.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>

namespace kaz {

namespace {

// Walks letters as a reader counts them.
class Borders {
public:
    // Whether one begins with this code point.
    bool Begins(char32_t code) noexcept {
        const bool begins = before_ == 0 || utf8proc_grapheme_break_stateful(
                                                before_, static_cast<std::int32_t>(code), &state_);
        before_ = static_cast<std::int32_t>(code);
        return begins;
    }

private:
    std::int32_t state_ = 0;
    std::int32_t before_ = 0;
};

}  // namespace

std::size_t BytesOfLetters(std::string_view text, std::size_t count) noexcept {
    // Each of ASCII is one by itself, but for a line break, unless an accent comes behind it.
    const std::string_view plain = text.substr(0, count < text.size() ? count + 1 : text.size());
    if (IsAscii(plain) && plain.find('\r') == std::string_view::npos) return std::min(count, text.size());
    Borders borders;
    std::string_view rest = text;
    while (!rest.empty()) {
        const Utf8Letter letter = FirstLetter(rest);
        if (borders.Begins(letter.code) && count-- == 0) break;
        rest.remove_prefix(letter.length);
    }
    return text.size() - rest.size();
}

std::size_t WholeLetters(std::string_view text, std::size_t bytes) noexcept {
    if (bytes >= text.size()) return text.size();
    Borders borders;
    std::size_t whole = 0;
    for (std::size_t at = 0; at <= bytes;) {
        const Utf8Letter letter = FirstLetter(text.substr(at));
        if (borders.Begins(letter.code)) whole = at;
        at += letter.length;
    }
    return whole;
}

}  // namespace kaz
