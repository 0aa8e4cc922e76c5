#include "base/Numbers.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace kaz {

namespace {

struct Scanned {
    double value = 0;
    std::size_t length = 0;  // characters used; 0 when there is no number
};

// "&H" and hexadecimal digits. Up to four digits stand for a 16-bit and up to eight for a 32-bit signed
// value, so &HFFFF is -1, as such literals have always been read.
Scanned ScanHexadecimal(std::string_view text) {
    if (text.size() < 3 || text[0] != '&' || (text[1] != 'H' && text[1] != 'h')) return {};
    std::uint64_t bits = 0;
    const char* first = text.data() + 2;
    const auto [end, error] = std::from_chars(first, text.data() + text.size(), bits, 16);
    if (end == first || error != std::errc{}) return {};
    const auto digits = end - first;
    auto value = static_cast<double>(bits);
    if (digits <= 4)
        value = static_cast<std::int16_t>(static_cast<std::uint16_t>(bits));
    else if (digits <= 8)
        value = static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
    return {value, static_cast<std::size_t>(end - text.data())};
}

// Of a number that no double holds: whether it is too small (and not too large), by the place of its first
// digit other than 0 and its exponent.
bool IsTiny(std::string_view number) {
    const auto mark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mark);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
    const std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
    if (first == mantissa.size() || exponent.size() > 9) return exponent.starts_with('-');
    const auto order = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return order + static_cast<std::int64_t>(LeadingNumber(exponent)) < 0;
}

Scanned ScanNumber(std::string_view text) {
    if (!text.empty() && text[0] == '&') return ScanHexadecimal(text);
    std::size_t at = 0;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    const bool starts =
        at < text.size() &&
        (IsDigit(text[at]) || (text[at] == '.' && at + 1 < text.size() && IsDigit(text[at + 1])));
    if (!starts) return {};
    double value = 0;
    const char* first = text.data() + at;
    const auto [end, error] = std::from_chars(first, text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        const bool tiny = IsTiny({first, static_cast<std::size_t>(end - first)});
        value = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return {negative ? -value : value, static_cast<std::size_t>(end - text.data())};
}

double RoundHalfToEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(floor, 2.0) != 0.0)) return floor + 1.0;
    return floor;
}

template <class Integer>
Integer RoundTo(double value) {
    const double rounded = RoundHalfToEven(value);
    constexpr double kLow = std::numeric_limits<Integer>::min();
    constexpr double kHigh = std::numeric_limits<Integer>::max();
    if (!(rounded >= kLow && rounded <= kHigh)) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Integer>(rounded);
}

// Nearly every number in the files is a few plain digits.
template <class Integer>
Integer TextTo(std::string_view text) {
    Integer value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc{} && end == text.data() + text.size()) return value;
    return RoundTo<Integer>(StrictNumber(text));
}

}  // namespace

std::int32_t RoundToInt32(double value) { return RoundTo<std::int32_t>(value); }

std::int16_t RoundToInt16(double value) { return RoundTo<std::int16_t>(value); }

std::int16_t ToInt16(std::int64_t value) {
    if (value < INT16_MIN || value > INT16_MAX) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

double LeadingNumber(std::string_view text) noexcept {
    const auto first = text.find_first_not_of(" \t\r\n");
    return first == std::string_view::npos ? 0.0 : ScanNumber(text.substr(first)).value;
}

double StrictNumber(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const Scanned scanned = ScanNumber(trimmed);
    if (scanned.length == 0 || scanned.length != trimmed.size())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return scanned.value;
}

std::int16_t TextToInt16(std::string_view text) { return TextTo<std::int16_t>(text); }

std::int32_t TextToInt32(std::string_view text) { return TextTo<std::int32_t>(text); }

}  // namespace kaz
