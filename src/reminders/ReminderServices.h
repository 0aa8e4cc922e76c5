#pragma once

#include "base/ErrorTrap.h"
#include "forms/OpenWindows.h"
#include "forms/WindowFactory.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "platform/MessagePump.h"
#include "platform/Shell.h"
#include "storage/cSharedSound.h"
#include "support/cSHAREDSettings.h"
#include "support/cSharedLogging.h"

#include <functional>
#include <string>

namespace kaz {

class ReminderWindows;
class clsDbXml;

// What the reminder windows work with; all of it outlives them.
struct ReminderWindowServices {
    const Clock& clock;
    WindowFactory& factory;
    OpenWindows& openWindows;
    ErrorSink& errors;
    Dialogs& dialogs;
    FileSystem& files;
    MessagePump& pump;
    cSHAREDSettings& settings;
    cSharedSound& player;
    const std::string& applicationFolder;  // where the default alarm sound is
};

// What the reminder engine works with; all of it outlives the engine.
struct ReminderServices {
    const Clock& clock;
    const Locale& locale;
    FileSystem& files;
    MessagePump& pump;
    Shell& shell;
    cSharedLogging& log;
    cSHAREDSettings& settings;
    ReminderWindows& windows;
    clsDbXml* events;  // null until a user has been chosen
    clsDbXml* expired;
    std::function<void()> saveSettings = [] {};
};

}  // namespace kaz
