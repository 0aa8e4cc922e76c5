#pragma once

#include "platform/Locale.h"

namespace kaz {

// English (United States), whatever the system is set to, so that a run gives the same on every machine.
class PosixLocale : public Locale {
public:
    const LocaleData& Data() const override { return data_; }
    const CaseFolding& Folding() const override { return CaseFolding::Letters(); }

private:
    LocaleData data_;
};

}  // namespace kaz
