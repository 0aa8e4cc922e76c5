#pragma once

#include "model/clsEvent.h"
#include "support/cSHAREDSettings.h"

#include <string>
#include <string_view>

namespace kaz {

// The setting "Owner" while no user has been chosen, and in single-user mode.
inline constexpr std::string_view kNoOwner = "Not Set";
inline constexpr std::string_view kSingleUser = "Single";

inline std::string CurrentOwner(const cSHAREDSettings& settings) {
    return settings.TextOr("Owner", std::string(kNoOwner));
}

// An event that is read without an owner, or with the one of single-user mode, is the current user's.
inline void AdoptOrphan(clsEvent& event, const std::string& user) {
    if (event.Owner().empty() || event.Owner() == kSingleUser) event.Owner(user);
}

}  // namespace kaz
