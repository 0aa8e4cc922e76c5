#include "base/Text.h"

#include "base/Utf8.h"

#include <cstdint>

namespace kaz {

std::string_view Trim(std::string_view text) noexcept {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator, std::size_t limit) {
    std::vector<std::string_view> pieces;
    while (separator.empty() || limit == 0 || pieces.size() + 1 < limit) {
        const auto at = separator.empty() ? std::string_view::npos : text.find(separator);
        if (at == std::string_view::npos) break;
        pieces.push_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
    }
    pieces.push_back(text);
    return pieces;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    result.reserve(text.size());
    while (!what.empty()) {
        const auto at = text.find(what);
        if (at == std::string_view::npos) break;
        result.append(text.substr(0, at)).append(with);
        text.remove_prefix(at + what.size());
    }
    return result.append(text);
}

std::string OneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (const char c : text)
        if (!IsControl(c))
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    return std::string(Trim(line));
}

bool StringsEqual(std::string_view a, std::string_view b, const CaseFolding& folding) noexcept {
    return folding.Equal(Trim(a), Trim(b));
}

std::string UpperAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return result;
}

std::string HashDigits(std::string_view bytes) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    std::string digits(16, '0');
    for (std::size_t place = digits.size(); place-- > 0; hash >>= 4U)
        digits[place] = "0123456789abcdef"[hash & 15U];
    return digits;
}

std::string Beginning(std::string_view text, std::size_t longest) {
    std::string beginning(text.substr(0, BytesOfUtf16(text, longest)));
    return text.size() <= beginning.size() ? beginning : beginning.append("...");
}

}  // namespace kaz
