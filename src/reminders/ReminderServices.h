#pragma once

#include "base/ErrorTrap.h"
#include "forms/OpenWindows.h"
#include "platform/Platform.h"
#include "reminders/Outcomes.h"
#include "reminders/Quiet.h"
#include "storage/cSharedSound.h"
#include "support/cSHAREDSettings.h"

#include <string>

namespace kaz {

// What the reminder windows work with; all of it outlives them.
struct ReminderServices {
    Platform platform;
    cSHAREDSettings& settings;
    OpenWindows& openWindows;
    ErrorSink& errors;
    cSharedSound& player;
    Outcomes& outcomes;
    const std::string& applicationFolder;  // where the default alarm sound is
    Quiet& quiet;
};

}  // namespace kaz
