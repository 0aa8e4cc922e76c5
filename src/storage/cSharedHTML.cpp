#include "storage/cSharedHTML.h"

#include "base/CaseFolding.h"
#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace kaz {

namespace {

constexpr auto npos = std::string_view::npos;

// Tags are ASCII, so only ASCII letters are folded: an accented letter is never part of a tag, and files read
// the same under every code page.
std::size_t FindTag(std::string_view text, std::string_view tag, std::size_t from) {
    const CaseFolding& folding = CaseFolding::Ascii();
    if (tag.size() < 2 || tag[0] != '<') return folding.Find(text, tag, from);
    // Most of the time of a search goes into tags that differ in their second character.
    const char second = folding.Lower(tag[1]);
    while (from < text.size() && text.size() - from >= tag.size()) {
        const void* found = std::memchr(text.data() + from, '<', text.size() - from - (tag.size() - 1));
        if (found == nullptr) return npos;
        const auto at = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        if (folding.Lower(text[at + 1]) == second && folding.Equal(text.substr(at, tag.size()), tag))
            return at;
        from = at + 1;
    }
    return npos;
}

std::string WithoutTag(std::string_view text, std::string_view tag) {
    std::string result;
    while (!tag.empty()) {
        const auto at = FindTag(text, tag, 0);
        if (at == npos) break;
        result.append(text.substr(0, at));
        text.remove_prefix(at + tag.size());
    }
    return result.append(text);
}

std::string Enclose(std::string_view value, std::string_view startTag, std::string_view endTag) {
    std::string result;
    result.reserve(startTag.size() + value.size() + endTag.size());
    return result.append(startTag).append(value).append(endTag);
}

// The leading hexadecimal digits of the pair, as a lenient number scanner reads them.
constexpr char DecodedPair(char first, char second) {
    const int high = HexValue(first);
    const int low = HexValue(second);
    if (high < 0) return '\0';
    return static_cast<char>(static_cast<unsigned char>(low < 0 ? high : high * 16 + low));
}

struct EncodedByte {
    char text[3];
    std::uint8_t length;
};

constexpr std::array<EncodedByte, 256> EncodingTable() {
    std::array<EncodedByte, 256> table{};
    for (unsigned code = 0; code < 256; ++code) {
        const bool letter = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
        const bool digit = code >= '0' && code <= '9';
        const bool plain = letter || digit || code == ':' || code == '.' || code == ',' || code == '?';
        if (plain)
            table[code] = {{static_cast<char>(code), 0, 0}, 1};
        else
            table[code] = {{'%', HexDigit(code >> 4U), HexDigit(code)}, 3};
    }
    return table;
}

constexpr std::array<EncodedByte, 256> kEncoding = EncodingTable();

}  // namespace

std::string cSharedHTML::ExtractBetweenTags(std::string_view text, std::string_view startTag,
                                            std::string_view endTag) {
    const auto start = FindTag(text, startTag, 0);
    if (start == npos) return {};
    const auto end = FindTag(text, endTag, start);
    const std::string_view stretch = text.substr(start, end == npos ? npos : end - start);
    // Kept on purpose: a start tag that recurs in the content is removed too, and only then the end tags, so
    // that a value which holds its own tags loses them.
    std::string content = WithoutTag(stretch, startTag);
    return FindTag(content, endTag, 0) == npos ? content : WithoutTag(content, endTag);
}

std::string cSharedHTML::ExtractWithTags(std::string_view text, std::string_view startTag,
                                         std::string_view endTag) {
    const auto start = FindTag(text, startTag, 0);
    if (start == npos) return {};
    const auto end = FindTag(text, endTag, start);
    return std::string(text.substr(start, end == npos ? npos : end - start + endTag.size()));
}

void cSharedHTML::ExtractXMLArray(std::string_view text, std::string_view startTag, std::string_view endTag,
                                  std::string_view delimiter, std::vector<std::string>& pieces) {
    pieces.clear();
    const std::string stretch = ExtractWithTags(text, startTag, endTag);
    if (stretch.empty()) return;
    std::string_view rest = stretch;
    for (auto at = npos; !delimiter.empty() && (at = FindTag(rest, delimiter, 0)) != npos;) {
        pieces.emplace_back(rest.substr(0, at));
        rest.remove_prefix(at + delimiter.size());
    }
    pieces.emplace_back(rest);
}

std::int32_t cSharedHTML::ExtractInt(std::string_view text, std::string_view startTag,
                                     std::string_view endTag) {
    return RoundToInt32(LeadingNumber(ExtractBetweenTags(text, startTag, endTag)));
}

double cSharedHTML::ExtractFloat(std::string_view text, std::string_view startTag,
                                 std::string_view endTag) const {
    std::string content = ExtractBetweenTags(text, startTag, endTag);
    // Kept on purpose: where the full stop groups digits it becomes a comma, at which the scanner stops, so
    // that the fraction which EncloseFloat wrote is not read back.
    if (locale_.CommaThousandSeparator()) std::replace(content.begin(), content.end(), '.', ',');
    return LeadingNumber(content);
}

bool cSharedHTML::ExtractBool(std::string_view text, std::string_view startTag, std::string_view endTag) {
    return ExtractBetweenTags(text, startTag, endTag) == "-1";
}

DateValue cSharedHTML::ExtractDate(std::string_view text, std::string_view startTag,
                                   std::string_view endTag) const {
    return RecogniseDate(ExtractBetweenTags(text, startTag, endTag), locale_)
        .value_or(DateValue())
        .DateOnly();
}

std::string cSharedHTML::ExtractString(std::string_view text, std::string_view startTag,
                                       std::string_view endTag) {
    return HtmlDecode(ExtractBetweenTags(text, startTag, endTag));
}

std::string cSharedHTML::EncloseInt(std::int32_t value, std::string_view startTag, std::string_view endTag) {
    return Enclose(std::to_string(value), startTag, endTag);
}

std::string cSharedHTML::EncloseFloat(double value, std::string_view startTag,
                                      std::string_view endTag) const {
    constexpr int kDigits = 15;
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::general, kDigits);
    const std::string number = UpperAscii({buffer.data(), written.ptr});
    std::string text = Enclose(ReplaceAll(number, ".", locale_.decimalSeparator), startTag, endTag);
    if (locale_.CommaThousandSeparator()) std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

std::string cSharedHTML::EncloseString(std::string_view value, std::string_view startTag,
                                       std::string_view endTag) {
    return Enclose(HtmlEncode(value), startTag, endTag);
}

std::string cSharedHTML::EncloseDate(DateValue value, std::string_view startTag, std::string_view endTag) {
    std::string date;
    AppendIsoDate(date, value);
    return Enclose(date, startTag, endTag);
}

std::string cSharedHTML::EncloseBool(bool value, std::string_view startTag, std::string_view endTag) {
    return Enclose(value ? "-1" : "0", startTag, endTag);
}

std::string cSharedHTML::HtmlEncode(std::string_view text) {
    std::string result;
    AppendEncoded(result, text);
    return result;
}

void cSharedHTML::AppendEncoded(std::string& to, std::string_view text) {
    const std::size_t before = to.size();
    to.resize(before + text.size() * 3);
    char* out = to.data() + before;
    for (const char c : text) {
        const EncodedByte& code = kEncoding[static_cast<unsigned char>(c)];
        // The room for three is there even when only one is kept.
        std::memcpy(out, code.text, sizeof code.text);
        out += code.length;
    }
    to.resize(static_cast<std::size_t>(out - to.data()));
}

std::string cSharedHTML::HtmlDecode(std::string_view text) {
    std::string result(text.size(), '\0');
    char* out = result.data();
    for (std::size_t at = 0; at < text.size();) {
        const bool pair = text[at] == '%' && text.size() - at >= 3;
        *out++ = pair ? DecodedPair(text[at + 1], text[at + 2]) : text[at];
        at += pair ? 3 : 1;
    }
    result.resize(static_cast<std::size_t>(out - result.data()));
    return result;
}

std::string cSharedHTML::ReplaceBetweenTags(std::string_view text, std::string_view startTag,
                                            std::string_view endTag, std::string_view replacement) {
    std::string result;
    std::size_t copied = 0;
    std::size_t from = 0;
    for (;;) {
        const auto start = FindTag(text, startTag, from);
        const auto end = start == npos ? npos : FindTag(text, endTag, start);
        if (end == npos) return result.append(text.substr(copied));
        const auto contentStart = start + startTag.size();
        if (contentStart > copied) result.append(text.substr(copied, contentStart - copied));
        result.append(replacement);
        copied = end;
        // On to the text after the replacement: a start tag inside the replacement is never itself replaced,
        // which would go on for ever.
        from = std::max(end, start + 1);
    }
}

std::int32_t cSharedHTML::cInstr(std::string_view text, std::string_view pattern) {
    const auto at = FindTag(text, pattern, 0);
    return at == npos || text.empty() ? 0 : RoundToInt32(static_cast<double>(at) + 1);
}

}  // namespace kaz
