#pragma once

#include "base/DateValue.h"
#include "base/LocaleData.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Values between tags in plain text, found and written by text search alone. A tag is handed over complete,
// with its angle brackets, and is found whatever its letter case. A start tag that is missing reads as an
// empty text, hence as 0, false or day zero; a missing end tag reads to the end of the text. Pure functions
// of their arguments, apart from the locale in ExtractFloat, EncloseFloat and ExtractDate.
class cSharedHTML {
public:
    // `locale` outlives the object.
    explicit cSharedHTML(const LocaleData& locale) : locale_(locale) {}

    static std::string ExtractBetweenTags(std::string_view text, std::string_view startTag,
                                          std::string_view endTag);
    static std::string ExtractWithTags(std::string_view text, std::string_view startTag,
                                       std::string_view endTag);
    static void ExtractXMLArray(std::string_view text, std::string_view startTag, std::string_view endTag,
                                std::string_view delimiter, std::vector<std::string>& pieces);

    // Promised: the program itself never calls the ones for a single value, down to EncloseBool.
    // The leading number, rounded half to even. Throws Overflow outside 32 bits.
    static std::int32_t ExtractInt(std::string_view text, std::string_view startTag, std::string_view endTag);
    double ExtractFloat(std::string_view text, std::string_view startTag, std::string_view endTag) const;
    // True for exactly "-1".
    static bool ExtractBool(std::string_view text, std::string_view startTag, std::string_view endTag);
    // The date without its time of day; day zero when the content is no date.
    DateValue ExtractDate(std::string_view text, std::string_view startTag, std::string_view endTag) const;
    static std::string ExtractString(std::string_view text, std::string_view startTag,
                                     std::string_view endTag);

    static std::string EncloseInt(std::int32_t value, std::string_view startTag, std::string_view endTag);
    std::string EncloseFloat(double value, std::string_view startTag, std::string_view endTag) const;
    static std::string EncloseString(std::string_view value, std::string_view startTag,
                                     std::string_view endTag);
    static std::string EncloseDate(DateValue value, std::string_view startTag, std::string_view endTag);
    static std::string EncloseBool(bool value, std::string_view startTag, std::string_view endTag);

    // Percent-encoding: letters, digits and ":.,?" stand for themselves, every other
    // byte becomes "%" and two digits.
    static std::string HtmlEncode(std::string_view text);
    static void AppendEncoded(std::string& to, std::string_view text);
    // A "%" without two characters after it stays; a pair that is not
    // hexadecimal counts by its leading digits.
    static std::string HtmlDecode(std::string_view text);

    // Promised: the program itself never calls it.
    // The text with every stretch between the tags replaced; the tags stay.
    static std::string ReplaceBetweenTags(std::string_view text, std::string_view startTag,
                                          std::string_view endTag, std::string_view replacement);
    // Position of the pattern, counted from 1, whatever its letter case; 0 when it does not occur.
    static std::int32_t cInstr(std::string_view text, std::string_view pattern);

private:
    const LocaleData& locale_;
};

}  // namespace kaz
