#pragma once

#include "support/SettingValue.h"

#include <string>

namespace kaz {

// One named value of the settings store.
struct cSHAREDSetting {
    std::string Name;
    SettingValue KeyValue;
};

}  // namespace kaz
