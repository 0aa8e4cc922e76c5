#include "base/Utf8.h"

#include <cstdint>
#include <cstring>

namespace kaz {

namespace {

constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }
constexpr bool Continues(char c) { return (Byte(c) & 0xC0U) == 0x80U; }
constexpr bool IsHalf(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

// How many bytes a letter with this lead byte has, and the least code that needs them; 0 for none.
struct Lead {
    std::size_t length;
    char32_t least;
};

constexpr Lead LeadOf(unsigned lead) {
    if (lead < 0x80) return {1, 0};
    if (lead >= 0xC2 && lead < 0xE0) return {2, 0x80};
    if (lead >= 0xE0 && lead < 0xF0) return {3, 0x800};
    if (lead >= 0xF0 && lead < 0xF5) return {4, 0x10000};
    return {0, 0};
}

}  // namespace

Utf8Letter FirstLetter(std::string_view text) noexcept {
    if (text.empty()) return {};
    const unsigned first = Byte(text[0]);
    if (first < 0x80) return {first, 1, true};
    const Lead lead = LeadOf(first);
    if (lead.length == 0 || text.size() < lead.length) return {kReplacement, 1, false};
    char32_t code = first & (0x7FU >> lead.length);
    for (std::size_t at = 1; at < lead.length; ++at) {
        if (!Continues(text[at])) return {kReplacement, 1, false};
        code = code << 6U | (Byte(text[at]) & 0x3FU);
    }
    if (code < lead.least || code > 0x10FFFF || IsHalf(code)) return {kReplacement, 1, false};
    return {code, lead.length, true};
}

void AppendLetter(std::string& text, char32_t code) {
    if (code > 0x10FFFF || IsHalf(code)) code = kReplacement;
    const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::size_t AsciiAtStart(std::string_view text) noexcept {
    constexpr std::size_t kStep = 8;
    constexpr std::uint64_t kHigh = 0x8080808080808080U;
    std::size_t at = 0;
    for (; at + kStep <= text.size(); at += kStep) {
        std::uint64_t step = 0;
        std::memcpy(&step, text.data() + at, kStep);
        if ((step & kHigh) != 0) break;
    }
    while (at < text.size() && Byte(text[at]) < 0x80)
        ++at;
    return at;
}

bool IsAscii(std::string_view text) noexcept { return AsciiAtStart(text) == text.size(); }

bool IsUtf8(std::string_view text) noexcept {
    if (IsAscii(text)) return true;
    while (!text.empty()) {
        const Utf8Letter letter = FirstLetter(text);
        if (!letter.valid) return false;
        text.remove_prefix(letter.length);
    }
    return true;
}

std::string CleanUtf8(std::string_view text) {
    if (IsUtf8(text)) return std::string(text);
    std::string clean;
    while (!text.empty()) {
        const Utf8Letter letter = FirstLetter(text);
        AppendLetter(clean, letter.code);
        text.remove_prefix(letter.length);
    }
    return clean;
}

std::size_t Utf16Length(std::string_view text) noexcept {
    std::size_t units = 0;
    while (!text.empty()) {
        const Utf8Letter letter = FirstLetter(text);
        units += letter.code >= 0x10000 ? 2 : 1;
        text.remove_prefix(letter.length);
    }
    return units;
}

std::size_t BytesOfUtf16(std::string_view text, std::size_t units) noexcept {
    std::string_view rest = text;
    while (!rest.empty()) {
        const Utf8Letter letter = FirstLetter(rest);
        const std::size_t width = letter.code >= 0x10000 ? 2 : 1;
        if (width > units) break;
        units -= width;
        rest.remove_prefix(letter.length);
    }
    return text.size() - rest.size();
}

}  // namespace kaz
