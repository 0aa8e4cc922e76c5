#include "ui/print/PageFrame.h"

#include "base/RuntimeError.h"
#include "ui/print/TextWrap.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr int kPageMargin = 20 * kMillimetre;
constexpr int kLeastWidth = 60 * kMillimetre;
constexpr int kLeastHeight = 30 * kMillimetre;
constexpr int kHeadingGap = 4 * kMillimetre;
constexpr int kRule = kMillimetre / 3;
constexpr PaperFont kTitleFont{18, true};
constexpr PaperFont kNoteFont{9, false};
constexpr Grey kNoteGrey = 80;

// The margins, or what the device cannot reach where that is more; on small paper they are a tenth of it.
PaperRect Inside(const Paper& paper) {
    const PaperRect reach = paper.Printable();
    const int across = std::min(kPageMargin, paper.Width() / 10);
    const int down = std::min(kPageMargin, paper.Height() / 10);
    return {std::max(across, reach.left), std::max(down, reach.top),
            std::min(paper.Width() - across, reach.right), std::min(paper.Height() - down, reach.bottom)};
}

}  // namespace

PageFrame::PageFrame(const Paper& paper, std::string title, std::string note)
    : paper_(paper),
      title_(std::move(title)),
      note_(std::move(note)),
      margins_(Inside(paper)) {
    title_ = ShortenText(paper_, title_, kTitleFont, margins_.Width());
    note_ = ShortenText(paper_, note_, kNoteFont, margins_.Width());
    const int noteLine = paper_.LineHeight(kNoteFont);
    area_ = margins_;
    area_.top += paper_.LineHeight(kTitleFont) + (NoteBeside() ? 0 : noteLine) + kHeadingGap;
    area_.bottom -= noteLine + kHeadingGap / 2;
    if (area_.Width() < kLeastWidth || area_.Height() < kLeastHeight)
        throw RuntimeError(ErrorNumber::DeviceError, "The paper is too small.");
}

bool PageFrame::NoteBeside() const {
    return paper_.TextWidth(title_, kTitleFont) + kHeadingGap + paper_.TextWidth(note_, kNoteFont) <=
           margins_.Width();
}

PaperPage& PageFrame::AddPage() {
    AddHeading(pages_.emplace_back());
    return pages_.back();
}

void PageFrame::AddHeading(PaperPage& page) const {
    const int titleLine = paper_.LineHeight(kTitleFont);
    const int noteLine = paper_.LineHeight(kNoteFont);
    page.texts.push_back({margins_.left, margins_.top, title_, kTitleFont});
    // Both stand on about one base line, a fifth of their heights above their feet.
    const int noteTop = margins_.top + titleLine - (NoteBeside() ? noteLine + (titleLine - noteLine) / 5 : 0);
    const int noteLeft = NoteBeside() ? margins_.right - paper_.TextWidth(note_, kNoteFont) : margins_.left;
    page.texts.push_back({noteLeft, noteTop, note_, kNoteFont, kNoteGrey});
    const int rule = area_.top - kHeadingGap * 2 / 3;
    page.bars.push_back({{margins_.left, rule, margins_.right, rule + kRule}});
}

void PageFrame::NumberPages() {
    for (std::size_t page = 0; page < pages_.size(); ++page) {
        const std::string number =
            "Page " + std::to_string(page + 1) + " of " + std::to_string(pages_.size());
        const int left = margins_.right - paper_.TextWidth(number, kNoteFont);
        pages_[page].texts.push_back(
            {left, margins_.bottom - paper_.LineHeight(kNoteFont), number, kNoteFont, kNoteGrey});
    }
}

}  // namespace kaz
