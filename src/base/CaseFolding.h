#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kaz {

// Comparisons of texts without regard to case, letter by letter.
class CaseFolding {
public:
    // ASCII letters only: enough for tags and setting names, which are bytes of any code page.
    static const CaseFolding& Ascii() noexcept;
    // Those of all languages, in texts of UTF-8.
    static const CaseFolding& Letters() noexcept;

    // Of an ASCII letter; anything else stays.
    static constexpr char Lower(char c) noexcept {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    }
    std::string Lower(std::string_view text) const;

    bool Equal(std::string_view a, std::string_view b) const noexcept { return LengthOf(b, a) == a.size(); }
    // How many bytes at the beginning of `text` are `pattern`; npos when it does not begin with it. A
    // letter's two forms may differ in length.
    std::size_t LengthOf(std::string_view pattern, std::string_view text) const noexcept;
    // Position of `pattern` in `text` at or after `from`, or npos. An empty pattern is found at `from`.
    std::size_t Find(std::string_view text, std::string_view pattern, std::size_t from = 0) const noexcept;
    // Whether `a` comes before `b`, by the numbers of the letters.
    bool Less(std::string_view a, std::string_view b) const noexcept;

private:
    using Fold = char32_t (*)(char32_t letter) noexcept;
    explicit constexpr CaseFolding(Fold fold) noexcept : fold_(fold) {}

    char32_t Take(std::string_view& text) const noexcept;

    Fold fold_;  // of letters beyond ASCII; null where they are bytes that stay
};

}  // namespace kaz
