#include "support/SettingValue.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <limits>

namespace kaz {

namespace {

// Any of the numbers and the Boolean as a number.
std::int32_t Numeric(const SettingValue& value) {
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    const bool* flag = std::get_if<bool>(&value);
    return flag && *flag ? -1 : 0;
}

bool IsNumberOtherThanZero(const std::string& text) {
    // What has no number at its start is no number as a whole, and most texts are of that kind.
    if (LeadingNumber(text) == 0.0) return false;
    try {
        return StrictNumber(text) != 0.0;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

std::string ToText(const SettingValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return {};
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
    return std::to_string(Numeric(value));
}

bool ToFlag(const SettingValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text ? IsNumberOtherThanZero(*text) : Numeric(value) != 0;
}

std::int32_t ToNumber(const SettingValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (!text) return Numeric(value);
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    return RoundToInt32(std::clamp(LeadingNumber(*text), kLow, kHigh));
}

}  // namespace kaz
