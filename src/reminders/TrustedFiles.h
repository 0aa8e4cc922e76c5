#pragma once

#include "support/cSHAREDSettings.h"

#include <string>

namespace kaz {

// The files that events of other users may run on this machine, as the user allowed them, one by one. They
// are kept as the set "TrustedFiles" of the settings, each as owner, "|" and file.
class TrustedFiles {
public:
    explicit TrustedFiles(cSHAREDSettings& settings) : settings_(settings) {}

    bool Holds(const std::string& owner, const std::string& file) const;
    void Add(const std::string& owner, const std::string& file);

    // Names with control characters cannot be kept in the settings file, where a line break starts another
    // setting; such a file is never run.
    static bool CanHold(const std::string& owner, const std::string& file);

private:
    cSHAREDSettings& settings_;
};

}  // namespace kaz
