#pragma once

#include "base/CaseFolding.h"
#include "platform/LocaleData.h"

namespace kaz {

// The user's locale and the letters of the system's code page, read once at start.
class Locale {
public:
    virtual ~Locale() = default;
    virtual const LocaleData& Data() const = 0;
    virtual const CaseFolding& Folding() const = 0;
};

}  // namespace kaz
