#include "base/CaseFolding.h"

#include "base/Utf8.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr bool IsAsciiByte(char c) { return static_cast<unsigned char>(c) < 0x80; }

constexpr bool IsSameAscii(char a, char b) { return CaseFolding::Lower(a) == CaseFolding::Lower(b); }

}  // namespace

const CaseFolding& CaseFolding::Ascii() noexcept {
    static constexpr CaseFolding kAscii{nullptr};
    return kAscii;
}

// Takes the first letter off the text, which is not empty.
char32_t CaseFolding::Take(std::string_view& text) const noexcept {
    const char first = text.front();
    if (!fold_ || IsAsciiByte(first)) {
        text.remove_prefix(1);
        return static_cast<unsigned char>(Lower(first));
    }
    const Utf8Letter letter = FirstLetter(text);
    text.remove_prefix(letter.length);
    return fold_(letter.code);
}

std::string CaseFolding::Lower(std::string_view text) const {
    std::string lower;
    lower.reserve(text.size());
    while (!text.empty())
        if (!fold_ || IsAsciiByte(text.front())) {
            lower += Lower(text.front());
            text.remove_prefix(1);
        } else {
            AppendLetter(lower, Take(text));
        }
    return lower;
}

std::size_t CaseFolding::LengthOf(std::string_view pattern, std::string_view text) const noexcept {
    if (!fold_) {
        const bool begins = text.size() >= pattern.size() &&
                            std::equal(pattern.begin(), pattern.end(), text.begin(), IsSameAscii);
        return begins ? pattern.size() : std::string_view::npos;
    }
    std::string_view rest = text;
    while (!pattern.empty())
        if (rest.empty() || Take(pattern) != Take(rest)) return std::string_view::npos;
    return text.size() - rest.size();
}

std::size_t CaseFolding::Find(std::string_view text, std::string_view pattern,
                              std::size_t from) const noexcept {
    if (from > text.size()) return std::string_view::npos;
    if (pattern.empty()) return from;
    if (!fold_) {
        const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                                       pattern.begin(), pattern.end(), IsSameAscii);
        return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
    }
    const char32_t first = [&] {
        std::string_view rest = pattern;
        return Take(rest);
    }();
    std::string_view rest = text.substr(from);
    while (!rest.empty()) {
        const std::string_view here = rest;
        if (Take(rest) == first && LengthOf(pattern, here) != std::string_view::npos)
            return text.size() - here.size();
    }
    return std::string_view::npos;
}

bool CaseFolding::Less(std::string_view a, std::string_view b) const noexcept {
    while (!a.empty() && !b.empty()) {
        const char32_t left = Take(a);
        const char32_t right = Take(b);
        if (left != right) return left < right;
    }
    return a.empty() && !b.empty();
}

}  // namespace kaz
