#pragma once

#include "platform/Locale.h"

namespace kaz {

class FakeLocale : public Locale {
public:
    const LocaleData& Data() const override { return data; }
    const CaseFolding& Folding() const override { return CaseFolding::Letters(); }

    static LocaleData English() { return {}; }
    // English words, but the day before the month.
    static LocaleData British();
    static LocaleData German();
    static LocaleData French();
    // With letters that the Western code page does not hold.
    static LocaleData Polish();
    // The year first, and dots and blanks between the parts: "2023. 03. 15.".
    static LocaleData Hungarian();

    LocaleData data;
};

}  // namespace kaz
