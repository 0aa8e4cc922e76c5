#include "core/NamedEvents.h"

#include "base/Text.h"

namespace kaz {

std::string Counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string NameOf(const std::vector<clsEvent>& events) {
    constexpr std::size_t kLongest = 60;
    if (events.size() != 1) return Counted(events.size(), "event");
    return "\"" + Beginning(ReplaceAll(events.front().Desc(), kLineBreak, " "), kLongest) + "\"";
}

}  // namespace kaz
