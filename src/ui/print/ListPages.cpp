#include "ui/print/ListPages.h"

#include "ui/print/PageFrame.h"
#include "ui/print/TextWrap.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr PaperFont kFont{11, false};
constexpr PaperFont kLabelFont{11, true};
constexpr int kRowGap = kMillimetre * 3 / 2;
constexpr int kColumnGap = 5 * kMillimetre;
constexpr int kTick = 3 * kMillimetre;
constexpr int kHair = kMillimetre / 5;
constexpr Grey kRuleGrey = 190;

class ListSetter {
public:
    ListSetter(const PaperList& list, const Paper& paper)
        : list_(list),
          paper_(paper),
          frame_(paper, list.title, list.note),
          line_(paper.LineHeight(kFont)) {
        const PaperRect& area = frame_.Area();
        labelLeft_ = area.left + (list.boxesToTick ? kTick + kColumnGap / 2 : 0);
        int widest = 0;
        for (const PaperList::Row& row : list.rows)
            widest = std::max(widest, paper.TextWidth(row.label, kLabelFont));
        // A label never takes more than a third of the page.
        labelWidth_ = std::min(widest, area.Width() / 3);
        textLeft_ = labelLeft_ + (labelWidth_ > 0 ? labelWidth_ + kColumnGap : 0);
        Turn();
    }

    std::vector<PaperPage> Set() && {
        if (list_.rows.empty()) page_->texts.push_back({labelLeft_, top_, list_.nothing, kFont});
        for (const PaperList::Row& row : list_.rows)
            Add(row);
        frame_.NumberPages();
        return std::move(frame_).TakePages();
    }

private:
    void Turn() {
        page_ = &frame_.AddPage();
        top_ = frame_.Area().top;
        fresh_ = true;
    }
    bool Fits(int height) const { return top_ + height <= frame_.Area().bottom; }

    void Add(const PaperList::Row& row) {
        const auto lines = WrapText(paper_, row.text, kFont, frame_.Area().right - textLeft_);
        const int height = static_cast<int>(lines.size()) * line_;
        const bool startsGroup = !row.label.empty() && !list_.boxesToTick;
        if (!fresh_) top_ += startsGroup ? 2 * kRowGap : kRowGap;
        if (!fresh_ && !Fits(height) && height <= frame_.Area().Height()) Turn();
        if (!fresh_ && startsGroup) AddRule(top_ - kRowGap);
        AddHead(row);
        for (const std::string& line : lines) {
            if (!fresh_ && !Fits(line_)) Turn();
            page_->texts.push_back({textLeft_, top_, line, kFont});
            top_ += line_;
            fresh_ = false;
        }
    }
    void AddHead(const PaperList::Row& row) {
        if (!fresh_ && !Fits(line_)) Turn();
        if (list_.boxesToTick) AddTick();
        if (!row.label.empty())
            page_->texts.push_back(
                {labelLeft_, top_, ShortenText(paper_, row.label, kLabelFont, labelWidth_), kLabelFont});
    }
    void AddTick() {
        const int left = frame_.Area().left;
        const int top = top_ + (line_ - kTick) / 2;
        const PaperRect box{left, top, left + kTick, top + kTick};
        page_->bars.push_back({box});
        page_->bars.push_back(
            {{box.left + kHair, box.top + kHair, box.right - kHair, box.bottom - kHair}, 255});
    }
    void AddRule(int top) {
        page_->bars.push_back({{frame_.Area().left, top, frame_.Area().right, top + kHair}, kRuleGrey});
    }

    const PaperList& list_;
    const Paper& paper_;
    PageFrame frame_;
    int line_;
    int labelLeft_ = 0;
    int labelWidth_ = 0;
    int textLeft_ = 0;
    PaperPage* page_ = nullptr;
    int top_ = 0;
    bool fresh_ = true;  // nothing of the list is on the page yet
};

}  // namespace

std::vector<PaperPage> LayOutList(const PaperList& list, const Paper& paper) {
    return ListSetter(list, paper).Set();
}

}  // namespace kaz
