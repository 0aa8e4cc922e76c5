#pragma once

#include "core/BackupContents.h"

#include <string>
#include <vector>

namespace kaz {

// What a restore has come to.
struct RestoreResult {
    bool kept = false;         // the present files; else nothing was restored
    std::size_t restored = 0;  // events that are here now as they were
    std::string told;          // of those that could not be, for the user
};

// Puts events of a backup back: those that are not here any more, and with `replace` those that are
// different, in the place of what they are now. The present event files are kept before, beside the backups.
// It is one step, which the user can take back.
RestoreResult RestoreEvents(Application& app, const std::vector<BackedUpEvent>& events, bool replace);

}  // namespace kaz
