#include "support/Health.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

bool LooksTheSame(const Health::Notice& a, const Health::Notice& b) {
    const auto sameCaption = [](const Health::Action& x, const Health::Action& y) {
        return x.caption == y.caption;
    };
    return a.weight == b.weight && a.sign == b.sign && a.text == b.text &&
           std::equal(a.actions.begin(), a.actions.end(), b.actions.begin(), b.actions.end(), sameCaption);
}

}  // namespace

void Health::Tell(Notice notice) {
    const auto old = std::find_if(notices_.begin(), notices_.end(),
                                  [&](const Notice& other) { return other.key == notice.key; });
    const bool same = old != notices_.end() && LooksTheSame(*old, notice);
    if (old != notices_.end())
        *old = std::move(notice);
    else
        notices_.push_back(std::move(notice));
    if (same) return;
    std::stable_sort(notices_.begin(), notices_.end(),
                     [](const Notice& a, const Notice& b) { return a.weight > b.weight; });
    Changed();
}

void Health::Clear(std::string_view key) {
    if (std::erase_if(notices_, [&](const Notice& notice) { return notice.key == key; }) > 0) Changed();
}

const Health::Notice* Health::Find(std::string_view key) const {
    const auto found = std::find_if(notices_.begin(), notices_.end(),
                                    [&](const Notice& notice) { return notice.key == key; });
    return found == notices_.end() ? nullptr : &*found;
}

void Health::Changed() const {
    if (changed_) changed_();
}

}  // namespace kaz
