#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kaz {

// Lower-case forms of the 256 characters of a single-byte code page, for comparisons without regard to case.
class CaseFolding {
public:
    // ASCII letters only: enough for tags and setting names, and the same on every machine.
    static const CaseFolding& Ascii() noexcept;
    // The Western code page (Windows-1252), accented letters included.
    static const CaseFolding& Western() noexcept;

    explicit constexpr CaseFolding(const std::array<unsigned char, 256>& lower) noexcept : lower_(lower) {}

    char Lower(char c) const noexcept { return static_cast<char>(lower_[static_cast<unsigned char>(c)]); }
    std::string Lower(std::string_view text) const;

    bool Equal(std::string_view a, std::string_view b) const noexcept;
    // Position of `pattern` in `text` at or after `from`, or npos. An empty pattern is found at `from`.
    std::size_t Find(std::string_view text, std::string_view pattern, std::size_t from = 0) const noexcept;

private:
    std::array<unsigned char, 256> lower_;
};

}  // namespace kaz
