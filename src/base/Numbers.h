#pragma once

#include <cstdint>
#include <string_view>

namespace kaz {

// Rounds to the nearest whole number, a half to the even one. Throws Overflow outside 32 bits and for values
// that are no number.
std::int32_t RoundToInt32(double value);
// Rounds alike; throws Overflow outside 16 bits.
std::int16_t RoundToInt16(double value);

// Throws Overflow when the value does not fit 16 bits signed.
std::int16_t ToInt16(std::int64_t value);

// The value of the leading numeric part, read leniently: leading blanks, tabs and line breaks are skipped,
// then a sign, digits with "." as decimal point whatever the locale, an exponent, or "&H" and hexadecimal
// digits, up to the first character that cannot continue the number. Nothing numeric gives 0. Never throws.
double LeadingNumber(std::string_view text) noexcept;

// The whole text as a number in the file's form (sign, digits, "." as decimal point, exponent, "&H...";
// blanks around it allowed). Throws TypeMismatch when anything else is there or the text is blank.
double StrictNumber(std::string_view text);

// The whole text as a 16- or 32-bit integer, rounded half to even. Throws TypeMismatch or Overflow.
std::int16_t TextToInt16(std::string_view text);
std::int32_t TextToInt32(std::string_view text);

}  // namespace kaz
