#pragma once

#include "support/cSHAREDSettings.h"

#include <string>

namespace kaz {

// The files that events of other users may run on this machine, as the user allowed them, one by one. They
// are kept as the set "TrustedFiles" of the settings, each as the user in whose file the event came, "|" and
// file. The owner that the event claims counts for nothing: another one can be forged to go with a file that
// the user has allowed.
class TrustedFiles {
public:
    explicit TrustedFiles(cSHAREDSettings& settings) : settings_(settings) {}

    bool Holds(const std::string& source, const std::string& file) const;
    void Add(const std::string& source, const std::string& file);

    // Names with control characters cannot be kept in the settings file, where a line break starts another
    // setting, and one that is not shown as it is must not be asked for; nor is one that no path can have.
    // Such a file is never run.
    static bool CanHold(const std::string& source, const std::string& file);

private:
    cSHAREDSettings& settings_;
};

}  // namespace kaz
