#include "reminders/ReminderLines.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace kaz {

void ReminderLines::Add(const std::vector<std::string>& texts) {
    // Kept on purpose: a line goes before the first one whose number is not smaller, so among
    // equals the last added comes first. For many lines at once that is the newest first,
    // then ordered without disturbing equals.
    std::vector<Line> lines;
    lines.reserve(texts.size() + lines_.size());
    std::transform(texts.rbegin(), texts.rend(), std::back_inserter(lines), [](const std::string& text) {
        return Line{NumberOf(text), text};
    });
    std::move(lines_.begin(), lines_.end(), std::back_inserter(lines));
    std::stable_sort(lines.begin(), lines.end(),
                     [](const Line& a, const Line& b) { return a.number < b.number; });
    lines_ = std::move(lines);
}

std::vector<std::string> ReminderLines::Texts() const {
    std::vector<std::string> texts;
    texts.reserve(lines_.size());
    for (const Line& line : lines_)
        texts.push_back(line.text);
    return texts;
}

std::int16_t ReminderLines::NumberOf(std::string_view text) {
    // A description such as "99999 miles: change the oil" is no reason to lose its
    // line, so it is cut, not refused.
    const double number = LeadingNumber(ReplaceAll(text, "In ", ""));
    return RoundToInt16(std::clamp(number, double{INT16_MIN}, double{INT16_MAX}));
}

}  // namespace kaz
