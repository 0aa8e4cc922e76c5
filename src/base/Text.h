#pragma once

#include "base/CaseFolding.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

inline constexpr std::string_view kLineBreak = "\r\n";

constexpr bool IsControl(char c) { return static_cast<unsigned char>(c) < ' '; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Without the blanks (space characters only) at both ends.
std::string_view Trim(std::string_view text) noexcept;

// The pieces between occurrences of `separator`, empty ones included; one piece when it does not occur.
// `limit` 0 means no limit, else at most that many pieces, the last holding the rest.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator, std::size_t limit = 0);

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

// The text on one line: a blank for each row of line breaks and other control characters, none at the ends.
std::string OneLine(std::string_view text);

// At most so many letters of the text (as Windows counts them), with three dots behind them where something
// is missing.
std::string Beginning(std::string_view text, std::size_t longest);

// The text-equality test used for names: letter case and surrounding blanks do not matter.
bool StringsEqual(std::string_view a, std::string_view b,
                  const CaseFolding& folding = CaseFolding::Letters()) noexcept;

std::string UpperAscii(std::string_view text);

constexpr char HexDigit(unsigned value) { return "0123456789ABCDEF"[value & 15U]; }

// Of one hexadecimal digit; -1 for any other character.
constexpr int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

// 16 hexadecimal digits that stand for bytes of any length (64-bit FNV-1a), for the name of something.
std::string HashDigits(std::string_view bytes);

}  // namespace kaz
