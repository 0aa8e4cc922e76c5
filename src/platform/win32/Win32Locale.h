#pragma once

#include "platform/Locale.h"

namespace kaz {

class Win32Locale : public Locale {
public:
    Win32Locale();
    const LocaleData& Data() const override { return data_; }
    const CaseFolding& Folding() const override { return folding_; }
    std::optional<std::string> FromUtf8(std::string_view text) const override;

private:
    LocaleData data_;
    CaseFolding folding_;
};

}  // namespace kaz
