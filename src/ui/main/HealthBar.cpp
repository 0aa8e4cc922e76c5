#include "ui/main/HealthBar.h"

#include "base/Text.h"
#include "resources/resource.h"

#include <algorithm>
#include <cctype>

namespace kaz {

namespace {

// In units of 1/96 inch.
constexpr int kBarGap = 6;
constexpr int kBarLine = 26;   // of a text of one line, and of a button
constexpr int kBarLines = 40;  // of two
constexpr int kLeastButton = 72;

// The letters that open a menu or a control of the main window by Alt already.
constexpr std::string_view kTaken = "xwnir";

Tone ToneOf(Health::Weight weight) {
    switch (weight) {
    case Health::Weight::Alarm: return Tone::Alarm;
    case Health::Weight::Warning: return Tone::Warning;
    case Health::Weight::Note: break;
    }
    return Tone::Note;
}

// The caption with a letter for the Alt key that none of the others has.
std::string WithKey(const std::string& caption, std::string& taken) {
    std::string text;
    bool found = false;
    for (const char c : caption) {
        const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (!found && std::isalpha(static_cast<unsigned char>(c)) && taken.find(lower) == std::string::npos) {
            found = true;
            taken += lower;
            text += '&';
        }
        text += c;
        if (c == '&') text += c;
    }
    return text;
}

}  // namespace

std::size_t HealthBar::Position() const {
    const auto& notices = health_.Notices();
    const auto at = std::find_if(notices.begin(), notices.end(),
                                 [this](const Health::Notice& notice) { return notice.key == shown_; });
    return at == notices.end() ? 0 : static_cast<std::size_t>(at - notices.begin());
}

void HealthBar::Show() {
    const auto& notices = health_.Notices();
    const std::string first = notices.empty() ? std::string() : notices.front().key;
    if (first != first_) shown_ = first;
    first_ = first;
    if (notices.empty())
        shown_.clear();
    else
        shown_ = notices[Position()].key;

    captions_ = {};
    const bool several = notices.size() > 1;
    if (!notices.empty()) {
        const Health::Notice& notice = notices[Position()];
        window_.SetNotice(IDC_lblHealth, notice.text, ToneOf(notice.weight));
        for (std::size_t i = 0; i < std::min(notice.actions.size(), captions_.size()); ++i)
            captions_[i] = notice.actions[i].caption;
        window_.SetText(IDC_lblHealthCount,
                        std::to_string(Position() + 1) + " of " + std::to_string(notices.size()));
    }
    ShowButtons();
    window_.SetControlVisible(IDC_lblHealthCount, several);
    window_.SetControlVisible(IDC_cmdHealthNext, several);
    Place();
    window_.SetControlVisible(IDC_lblHealth, !notices.empty());
}

void HealthBar::ShowButtons() {
    std::string taken(kTaken);
    for (int button = 0; button < kButtons; ++button) {
        const std::string& caption = captions_[static_cast<std::size_t>(button)];
        if (!caption.empty()) window_.SetText(IDC_cmdHealth + button, WithKey(caption, taken));
        window_.SetControlVisible(IDC_cmdHealth + button, !caption.empty());
    }
}

void HealthBar::Next() {
    const auto& notices = health_.Notices();
    if (!notices.empty()) shown_ = notices[(Position() + 1) % notices.size()].key;
    Show();
}

void HealthBar::Press(int button) const {
    const Health::Notice* notice = health_.Find(shown_);
    const std::string& caption = captions_.at(static_cast<std::size_t>(button));
    if (!notice) return;
    const auto action =
        std::find_if(notice->actions.begin(), notice->actions.end(),
                     [&](const Health::Action& candidate) { return candidate.caption == caption; });
    if (action == notice->actions.end()) return;
    // Copied, since it may clear its own notice.
    if (const auto run = action->run) run();
}

// In one row where the text keeps nearly half of it, else the buttons stand under the text.
void HealthBar::Place() {
    if (shown_.empty()) {
        window_.SetRoomAbove(IDC_ListEvents, 0);
        return;
    }
    // The list's place without the bar: it stays where the frame ends.
    const ControlPlace frame = window_.Place(IDC_fraFilter);
    const int left = frame.left;
    const int top = frame.top + frame.height + kBarGap;
    std::vector<Piece> row;
    int buttons = 0;
    for (int control = IDC_cmdHealth; control <= IDC_cmdHealthNext; ++control) {
        if (!window_.ControlVisible(control)) continue;
        const bool isText = control == IDC_lblHealthCount;
        const int width = window_.IdealWidth(control) + (isText ? 0 : 2 * kBarGap);
        row.push_back({control, isText ? width : std::max(width, kLeastButton)});
        buttons += row.back().width + kBarGap;
    }

    const bool beside = buttons <= frame.width * 55 / 100;
    const int textWidth = beside ? frame.width - buttons : frame.width;
    const int textHeight = window_.IdealWidth(IDC_lblHealth) <= textWidth ? kBarLine : kBarLines;
    window_.SetPlace(IDC_lblHealth, {left, top, textWidth, textHeight});
    if (beside)
        PlaceRow(row, left + textWidth + kBarGap, top + (textHeight - kBarLine) / 2, buttons - kBarGap);
    else
        PlaceRow(row, left, top + textHeight + kBarGap, frame.width);
    const bool below = !beside && !row.empty();
    window_.SetRoomAbove(IDC_ListEvents, textHeight + kBarGap + (below ? kBarLine + kBarGap : 0));
}

// Buttons that need more room than there is all give up the same part of theirs.
void HealthBar::PlaceRow(const std::vector<Piece>& row, int left, int top, int room) {
    int wanted = 0;
    for (const Piece& piece : row)
        wanted += piece.width;
    room -= kBarGap * (static_cast<int>(row.size()) - 1);
    constexpr int kTextLine = 15;
    for (const Piece& piece : row) {
        const int width = wanted > room ? piece.width * room / wanted : piece.width;
        const bool isText = piece.control == IDC_lblHealthCount;
        window_.SetPlace(piece.control, {left, isText ? top + (kBarLine - kTextLine) / 2 : top, width,
                                         isText ? kTextLine : kBarLine});
        left += width + kBarGap;
    }
}

}  // namespace kaz
