#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// All lengths on paper are hundredths of a millimetre, from the top left corner of the sheet.
inline constexpr int kMillimetre = 100;

struct PaperRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
};

struct PaperFont {
    int points = 10;
    bool bold = false;
};

// 0 is black, 255 the white of the paper.
using Grey = std::uint8_t;

// One line of text; `left` and `top` are the corner of its first character's cell.
struct PaperText {
    int left = 0;
    int top = 0;
    std::string text;
    PaperFont font;
    Grey grey = 0;
};

// A filled rectangle; a line is a thin one.
struct PaperBar {
    PaperRect place;
    Grey grey = 0;
};

// One printed side: the bars in their order, then the texts.
struct PaperPage {
    std::vector<PaperBar> bars;
    std::vector<PaperText> texts;
};

// A sheet and the size of texts on it.
class Paper {
public:
    virtual ~Paper() = default;

    virtual int Width() const = 0;
    virtual int Height() const = 0;
    // What the device can reach of the sheet.
    virtual PaperRect Printable() const = 0;

    virtual int TextWidth(std::string_view text, PaperFont font) const = 0;
    // From one line to the next.
    virtual int LineHeight(PaperFont font) const = 0;
    // How many leading bytes of the text fit into the width; no character is divided.
    virtual std::size_t Fitting(std::string_view text, PaperFont font, int width) const = 0;
};

}  // namespace kaz
