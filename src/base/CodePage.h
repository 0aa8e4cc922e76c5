#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kaz {

// The letters of files whose texts are bytes of a code page, one or two bytes a letter. Inside, texts are
// UTF-8, and this is where one becomes the other. Every row of bytes comes back from its text as it was, also
// one that means nothing in this code page: such a byte becomes a letter of the private area that stands for
// it. (Where two codes of a double-byte code page mean the same letter, the usual one comes back.)
class CodePage {
public:
    // That of the system, the same as long as the program runs; where there is none, the Western one.
    static const CodePage& OfSystem();
    // Windows-1252.
    static const CodePage& Western();

    virtual ~CodePage() = default;
    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;

    // As UTF-8.
    std::string Decode(std::string_view bytes) const;

    // What becomes of a letter that the code page does not hold: the nearest one, "?" where there is none; or
    // always "?", where another letter could make the name of another thing.
    enum class Otherwise { Nearest, QuestionMark };
    std::string Encode(std::string_view text, Otherwise otherwise = Otherwise::Nearest) const;
    // The same, without a copy for a text of ASCII; else in `room`.
    std::string_view BytesOf(std::string_view text, std::string& room,
                             Otherwise otherwise = Otherwise::Nearest) const;

    // Whether the text comes back from its bytes.
    bool Holds(std::string_view text) const;
    // The first letter that does not, as "U+1F382", in a sentence for the user; "" when there is none.
    std::string Refusal(std::string_view text) const;

protected:
    CodePage() = default;

    // To be called first, in the order of the bytes: what a byte means, a row of two, or nothing (0), and
    // that a byte begins rows of two. The first code of a letter is the one that is written, unless Prefer
    // says otherwise.
    void Means(unsigned char byte, char32_t letter);
    void Means(unsigned char lead, unsigned char trail, char32_t letter);
    void Begins(unsigned char lead);
    void Prefer(char32_t letter, std::uint16_t code);
    // A letter that the code page holds and that stands for another one; 0 when the code page knows of none.
    virtual char32_t NearestOf(char32_t letter) const = 0;

private:
    using Row = std::array<std::uint16_t, 256>;

    std::uint16_t CodeOf(char32_t letter) const;
    void Append(std::string& bytes, char32_t letter, Otherwise otherwise) const;
    void AppendNearest(std::string& bytes, char32_t letter) const;
    void Note(char32_t letter, std::uint16_t code);

    std::array<char16_t, 256> letters_{};
    std::array<std::unique_ptr<std::array<char16_t, 256>>, 256> pairs_;  // by lead byte
    std::array<std::unique_ptr<Row>, 256> codes_;  // by the letter's upper half; 0 for none
};

}  // namespace kaz
