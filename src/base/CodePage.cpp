#include "base/CodePage.h"

#include "base/Utf8.h"

#include <utf8proc.h>

#include <cstdio>
#include <utility>

namespace kaz {

namespace {

// Where the private area stands for bytes without a meaning.
constexpr char16_t kMeaningless = 0xEE00;

constexpr unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

// The letter without its accents, where that is all that makes it another one.
char32_t WithoutAccents(char32_t letter) {
    std::array<utf8proc_int32_t, 32> parts{};
    int lastClass = 0;
    const auto count = utf8proc_decompose_char(
        static_cast<utf8proc_int32_t>(letter), parts.data(), static_cast<utf8proc_ssize_t>(parts.size()),
        static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT), &lastClass);
    return count > 0 && count <= static_cast<utf8proc_ssize_t>(parts.size()) ? static_cast<char32_t>(parts[0])
                                                                             : 0;
}

// What is nothing by itself: an accent behind its letter, and what joins the parts of a picture.
bool IsPart(char32_t letter) {
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(letter));
    return category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_ME ||
           category == UTF8PROC_CATEGORY_CF;
}

class WesternPage : public CodePage {
public:
    WesternPage() {
        constexpr char16_t kUpper[] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                       0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
        for (unsigned byte = 0; byte < 256; ++byte)
            Means(static_cast<unsigned char>(byte), byte >= 0x80 && byte < 0xA0 ? kUpper[byte - 0x80] : byte);
    }

private:
    char32_t NearestOf(char32_t letter) const override {
        constexpr std::pair<char32_t, char32_t> kAlike[] = {
            {0x0110, 'D'}, {0x0111, 'd'},  {0x0126, 'H'}, {0x0127, 'h'}, {0x0131, 'i'}, {0x0141, 'L'},
            {0x0142, 'l'}, {0x0166, 'T'},  {0x0167, 't'}, {0x2010, '-'}, {0x2011, '-'}, {0x2012, 0x2013},
            {0x2212, '-'}, {0x2032, '\''}, {0x2033, '"'}, {0x2044, '/'}};
        for (const auto& [from, to] : kAlike)
            if (from == letter) return to;
        return 0;
    }
};

}  // namespace

const CodePage& CodePage::Western() {
    static const WesternPage kWestern;
    return kWestern;
}

void CodePage::Means(unsigned char byte, char32_t letter) {
    // The second one with the same meaning would come back as the first.
    const bool isOwn =
        letter <= 0xFFFF && letter != kReplacement && (byte == 0 || letter != 0) && CodeOf(letter) == 0;
    letters_[byte] = isOwn ? static_cast<char16_t>(letter) : static_cast<char16_t>(kMeaningless + byte);
    Note(letters_[byte], byte);
}

void CodePage::Begins(unsigned char lead) {
    pairs_[lead] = std::make_unique<std::array<char16_t, 256>>();
    letters_[lead] = static_cast<char16_t>(kMeaningless + lead);
    Note(letters_[lead], lead);
}

void CodePage::Means(unsigned char lead, unsigned char trail, char32_t letter) {
    if (letter == 0 || letter > 0xFFFF || letter == kReplacement) return;
    (*pairs_[lead])[trail] = static_cast<char16_t>(letter);
    if (CodeOf(letter) == 0) Note(letter, static_cast<std::uint16_t>(lead << 8U | trail));
}

void CodePage::Prefer(char32_t letter, std::uint16_t code) {
    if (code != 0 && CodeOf(letter) != 0) Note(letter, code);
}

void CodePage::Note(char32_t letter, std::uint16_t code) {
    std::unique_ptr<Row>& row = codes_[letter >> 8U];
    if (!row) row = std::make_unique<Row>();
    (*row)[letter & 0xFFU] = code;
}

std::uint16_t CodePage::CodeOf(char32_t letter) const {
    if (letter > 0xFFFF) return 0;
    const std::unique_ptr<Row>& row = codes_[letter >> 8U];
    return row ? (*row)[letter & 0xFFU] : std::uint16_t{0};
}

std::string CodePage::Decode(std::string_view bytes) const {
    if (IsAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const unsigned char byte = Byte(bytes[at]);
        if (byte < 0x80) {
            const std::size_t plain = AsciiAtStart(bytes.substr(at));
            text.append(bytes, at, plain);
            at += plain - 1;
            continue;
        }
        const auto& pairs = pairs_[byte];
        const char16_t letter = pairs && at + 1 < bytes.size() ? (*pairs)[Byte(bytes[at + 1])] : u'\0';
        AppendLetter(text, letter != 0 ? letter : letters_[byte]);
        if (letter != 0) ++at;
    }
    return text;
}

std::string CodePage::Encode(std::string_view text, Otherwise otherwise) const {
    if (IsAscii(text)) return std::string(text);
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t plain = AsciiAtStart(text);
        bytes.append(text, 0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        const Utf8Letter letter = FirstLetter(text);
        Append(bytes, letter.code, otherwise);
        text.remove_prefix(letter.length);
    }
    return bytes;
}

void CodePage::Append(std::string& bytes, char32_t letter, Otherwise otherwise) const {
    const std::uint16_t code = CodeOf(letter);
    if (code > 0xFF) bytes += static_cast<char>(code >> 8U);
    if (code != 0 || letter == 0)
        bytes += static_cast<char>(code & 0xFFU);
    else if (otherwise == Otherwise::Nearest)
        AppendNearest(bytes, letter);
    else
        bytes += '?';
}

void CodePage::AppendNearest(std::string& bytes, char32_t letter) const {
    if (IsPart(letter)) return;
    for (const char32_t near : {NearestOf(letter), WithoutAccents(letter), NearestOf(WithoutAccents(letter))})
        if (near != 0 && CodeOf(near) != 0) return Append(bytes, near, Otherwise::QuestionMark);
    bytes += '?';
}

std::string_view CodePage::BytesOf(std::string_view text, std::string& room, Otherwise otherwise) const {
    if (IsAscii(text)) return text;
    room = Encode(text, otherwise);
    return room;
}

bool CodePage::Holds(std::string_view text) const {
    if (IsAscii(text)) return true;
    bool isAmbiguous = false;
    for (std::string_view rest = text.substr(AsciiAtStart(text)); !rest.empty();
         rest.remove_prefix(AsciiAtStart(rest))) {
        const Utf8Letter letter = FirstLetter(rest);
        if (!letter.valid || (CodeOf(letter.code) == 0 && letter.code != 0)) return false;
        // A byte without a meaning may get one from what stands behind it.
        isAmbiguous = isAmbiguous || letter.code >> 8U == kMeaningless >> 8U;
        rest.remove_prefix(letter.length);
    }
    return !isAmbiguous || Decode(Encode(text)) == text;
}

std::string CodePage::Refusal(std::string_view text) const {
    while (!text.empty()) {
        const Utf8Letter letter = FirstLetter(text);
        if (!letter.valid || CodeOf(letter.code) == 0) {
            std::array<char, 16> name{};
            std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(letter.code));
            return "The character " + std::string(name.data()) +
                   " cannot be stored in this system's character set. Please replace it.";
        }
        text.remove_prefix(letter.length);
    }
    return {};
}

}  // namespace kaz
