#pragma once

#include "platform/Locale.h"

namespace kaz {

class FakeLocale : public Locale {
public:
    const LocaleData& Data() const override { return data; }
    const CaseFolding& Folding() const override { return folding; }
    // Letters of two bytes that the Western code page has too.
    std::optional<std::string> FromUtf8(std::string_view text) const override;

    static LocaleData English() { return {}; }
    // English words, but the day before the month.
    static LocaleData British();
    // Western code page (1252).
    static LocaleData German();
    static LocaleData French();
    // Central European code page (1250); names with letters that the Western one reads as others.
    static LocaleData Polish();
    // The year first, and dots and blanks between the parts: "2023. 03. 15.".
    static LocaleData Hungarian();

    LocaleData data;
    CaseFolding folding = CaseFolding::Western();
};

}  // namespace kaz
