#pragma once

#include "base/CaseFolding.h"
#include "base/LocaleData.h"

namespace kaz {

// The user's locale, read once at start.
class Locale {
public:
    virtual ~Locale() = default;
    virtual const LocaleData& Data() const = 0;
    virtual const CaseFolding& Folding() const = 0;
};

}  // namespace kaz
