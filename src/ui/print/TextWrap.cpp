#include "ui/print/TextWrap.h"

#include "base/Text.h"
#include "base/Utf8.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::string_view kMore = "...";

// How much of the text makes the next line; more than nothing, so that it comes to an end even where a single
// character is too wide.
std::size_t LineLength(const Paper& paper, std::string_view text, PaperFont font, int width) {
    const std::size_t fitting = paper.Fitting(text, font, width);
    if (fitting >= text.size()) return text.size();
    const std::size_t blank = text.substr(0, fitting + 1).rfind(' ');
    if (blank != std::string_view::npos && blank > 0) return blank;
    return std::max(WholeLetters(text, fitting), BytesOfLetters(text, 1));
}

}  // namespace

std::vector<std::string> WrapText(const Paper& paper, std::string_view text, PaperFont font, int width,
                                  std::size_t most) {
    std::vector<std::string> lines;
    for (text = Trim(text); !text.empty();) {
        if (lines.size() + 1 == most) {
            lines.push_back(ShortenText(paper, text, font, width));
            break;
        }
        const std::size_t length = LineLength(paper, text, font, width);
        lines.emplace_back(Trim(text.substr(0, length)));
        text = Trim(text.substr(length));
    }
    if (lines.empty()) lines.emplace_back();
    return lines;
}

std::string ShortenText(const Paper& paper, std::string_view text, PaperFont font, int width) {
    if (paper.Fitting(text, font, width) >= text.size()) return std::string(text);
    const int room = width - paper.TextWidth(kMore, font);
    const std::size_t fitting = room > 0 ? paper.Fitting(text, font, room) : 0;
    return std::string(Trim(text.substr(0, WholeLetters(text, fitting)))).append(kMore);
}

}  // namespace kaz
