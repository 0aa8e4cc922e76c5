#include "base/CaseFolding.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::array<unsigned char, 256> Table(bool western) {
    std::array<unsigned char, 256> lower{};
    for (unsigned c = 0; c < 256; ++c)
        lower[c] = static_cast<unsigned char>(c);
    for (unsigned c = 'A'; c <= 'Z'; ++c)
        lower[c] = static_cast<unsigned char>(c + 32);
    if (western) {
        for (unsigned c = 0xC0; c <= 0xDE; ++c)
            lower[c] = static_cast<unsigned char>(c + 32);
        lower[0xD7] = 0xD7;  // the multiplication sign, whose neighbour is the division sign
        lower[0x8A] = 0x9A;  // S with caron
        lower[0x8C] = 0x9C;  // OE ligature
        lower[0x8E] = 0x9E;  // Z with caron
        lower[0x9F] = 0xFF;  // Y with diaeresis
    }
    return lower;
}

}  // namespace

const CaseFolding& CaseFolding::Ascii() noexcept {
    static constexpr CaseFolding kAscii{Table(false)};
    return kAscii;
}

const CaseFolding& CaseFolding::Western() noexcept {
    static constexpr CaseFolding kWestern{Table(true)};
    return kWestern;
}

std::string CaseFolding::Lower(std::string_view text) const {
    std::string result(text);
    for (char& c : result)
        c = Lower(c);
    return result;
}

bool CaseFolding::Equal(std::string_view a, std::string_view b) const noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [this](char x, char y) { return Lower(x) == Lower(y); });
}

std::size_t CaseFolding::Find(std::string_view text, std::string_view pattern,
                              std::size_t from) const noexcept {
    if (from > text.size()) return std::string_view::npos;
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), pattern.begin(),
                    pattern.end(), [this](char x, char y) { return Lower(x) == Lower(y); });
    if (found == text.end() && !pattern.empty()) return std::string_view::npos;
    return static_cast<std::size_t>(found - text.begin());
}

}  // namespace kaz
