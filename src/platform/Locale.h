#pragma once

#include "base/CaseFolding.h"
#include "base/LocaleData.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// The user's locale and the letters of the system's code page, read once at start.
class Locale {
public:
    virtual ~Locale() = default;
    virtual const LocaleData& Data() const = 0;
    virtual const CaseFolding& Folding() const = 0;
    // The text in the system's code page; nothing when it is no UTF-8, or has a letter for which the code
    // page has no room.
    virtual std::optional<std::string> FromUtf8(std::string_view text) const = 0;
};

}  // namespace kaz
