#include "storage/EventCodes.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace kaz {

namespace {

// Kept on purpose: of all that six digits can say, only "000000" to "100000" are codes.
constexpr std::int32_t kRange = 100000;
constexpr std::size_t kCodes = kRange + 1;
constexpr std::size_t kCodeLength = 6;
constexpr int kMaxDraws = 1000;

std::string ToCode(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return std::string(kCodeLength - digits.size(), '0') + digits;
}

// Only codes of our own making can be drawn again; any other text is nothing to remember.
std::optional<std::size_t> NumberOfCode(std::string_view code) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (code.size() != kCodeLength || !std::all_of(code.begin(), code.end(), isDigit)) return std::nullopt;
    std::size_t number = 0;
    for (const char c : code)
        number = number * 10 + static_cast<std::size_t>(c - '0');
    if (number >= kCodes) return std::nullopt;
    return number;
}

}  // namespace

void EventCodes::Added(std::string_view code) {
    if (!known_) return;
    if (const auto number = NumberOfCode(code)) used_[*number] = true;
    ++count_;
}

bool EventCodes::MayHold(const std::vector<clsEvent>& events, std::string_view code) {
    const auto number = NumberOfCode(code);
    if (!number) return true;
    LookAt(events);
    return used_[*number];
}

std::string EventCodes::Unused(const std::vector<clsEvent>& events, const IsTaken& isTaken) {
    LookAt(events);
    const auto isFree = [&](const std::string& code) {
        return !used_[NumberOfCode(code).value_or(0)] && !isTaken(code);
    };
    // Random draws hardly ever fail until nearly all codes are in use; then the first free one is as good.
    for (int draw = 0; draw < kMaxDraws; ++draw)
        if (std::string code = RandomCode(); isFree(code)) return code;
    Forget();
    LookAt(events);
    for (std::int32_t number = 0; number <= kRange; ++number)
        if (std::string code = ToCode(number); isFree(code)) return code;
    throw RuntimeError(ErrorNumber::InternalError, "All event codes are in use");
}

std::vector<std::size_t> EventCodes::Repeated(const std::vector<clsEvent>& events) {
    std::vector<bool> seen(kCodes);
    std::unordered_set<std::string_view> others;
    std::vector<std::size_t> repeated;
    for (std::size_t place = 0; place < events.size(); ++place) {
        const auto number = NumberOfCode(events[place].IDCode);
        const bool isNew = number ? !seen[*number] : others.insert(events[place].IDCode).second;
        if (!isNew) repeated.push_back(place);
        if (number) seen[*number] = true;
    }
    return repeated;
}

std::string EventCodes::RandomCode() {
    random_.Seed(clock_.SecondsSinceMidnight());
    return ToCode(RoundToInt32(random_.Next() * kRange));
}

void EventCodes::LookAt(const std::vector<clsEvent>& events) {
    if (known_ && count_ == events.size()) return;
    used_.assign(kCodes, false);
    for (const clsEvent& event : events)
        if (const auto number = NumberOfCode(event.IDCode)) used_[*number] = true;
    count_ = events.size();
    known_ = true;
}

}  // namespace kaz
