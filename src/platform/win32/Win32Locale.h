#pragma once

#include "platform/Locale.h"

namespace kaz {

class Win32Locale : public Locale {
public:
    Win32Locale();
    const LocaleData& Data() const override { return data_; }
    const CaseFolding& Folding() const override { return CaseFolding::Letters(); }

private:
    LocaleData data_;
};

}  // namespace kaz
