#include "core/NamedEvents.h"

#include "base/Text.h"

namespace kaz {

std::string Counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string NameOf(const std::vector<clsEvent>& events) {
    constexpr std::size_t kLongest = 60;
    if (events.size() != 1) return Counted(events.size(), "event");
    std::string text = ReplaceAll(events.front().Desc(), kLineBreak, " ");
    if (text.size() > kLongest) text = text.substr(0, kLongest) + "...";
    return "\"" + text + "\"";
}

}  // namespace kaz
