#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kaz {

// Texts are UTF-8. A byte that is no part of a letter (broken, overlong, a lone half of UTF-16, beyond
// U+10FFFF) counts as the replacement character by itself, so that every text can be walked.
inline constexpr char32_t kReplacement = 0xFFFD;

struct Utf8Letter {
    char32_t code = 0;
    std::size_t length = 0;  // bytes; 0 at the end of the text
    bool valid = false;
};

// The letter at the beginning of the text.
Utf8Letter FirstLetter(std::string_view text) noexcept;
// Anything that is no letter is appended as the replacement character.
void AppendLetter(std::string& text, char32_t code);

// How many bytes of ASCII the text begins with.
std::size_t AsciiAtStart(std::string_view text) noexcept;
bool IsAscii(std::string_view text) noexcept;
bool IsUtf8(std::string_view text) noexcept;
// The text, with the replacement character for each byte that is no part of a letter.
std::string CleanUtf8(std::string_view text);

// How many units of UTF-16 the text has, which is what Windows counts.
std::size_t Utf16Length(std::string_view text) noexcept;
// As many bytes of the text as make whole letters of at most so many units of UTF-16.
std::size_t BytesOfUtf16(std::string_view text, std::size_t units) noexcept;

// As many bytes of the text as make the first `count` letters as a reader counts them: with its accents, and
// a picture of several parts as one.
std::size_t BytesOfLetters(std::string_view text, std::size_t count) noexcept;
// As many of the first bytes of the text as make whole letters in this sense.
std::size_t WholeLetters(std::string_view text, std::size_t bytes) noexcept;

}  // namespace kaz
