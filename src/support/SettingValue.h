#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace kaz {

// A setting's value: nothing, a text, a number or, only on its way in and out, a Boolean.
using SettingValue = std::variant<std::monostate, std::string, std::int16_t, std::int32_t, bool>;

// The value as text: numbers in decimal, a Boolean as "True" or "False", nothing as "".
std::string ToText(const SettingValue& value);

// Whether the value means yes: the Boolean True, a number other than 0, or a text that is such a number, as
// the file holds it ("-1").
bool ToFlag(const SettingValue& value);

// The value as a number: a text by its leading digits, True as -1; values beyond 32 bits are cut to its ends.
std::int32_t ToNumber(const SettingValue& value);

}  // namespace kaz
