#pragma once

#include "platform/OpenWindows.h"
#include "platform/Platform.h"
#include "reminders/ReminderWindows.h"
#include "reminders/clsReminder.h"
#include "storage/cSharedSound.h"
#include "storage/clsDbXml.h"
#include "storage/clsLayers.h"
#include "storage/clsSounds.h"
#include "support/cSHAREDSettings.h"
#include "support/cSHAREDShowError.h"
#include "support/cSharedLogging.h"

#include <memory>
#include <string>

namespace kaz {

// All that is application-wide, in the order of its creation; destruction is the reverse. It exists from the making
// of the component to its end; the databases exist once a user has been chosen at start-up.
class Application {
public:
    explicit Application(Platform services);

    Platform platform;
    cSharedLogging log;
    cSHAREDShowError errors;
    cSHAREDSettings settings;
    clsLayers layers;
    clsSounds sounds;
    cSharedSound player;
    OpenWindows openWindows;
    ReminderWindows reminderWindows;

    std::string runtimePath;
    std::string settingsFileName;
    std::string sharedFileName;  // a bare name; the shared folder is put before it where it is used
    bool settingsInitialised = false;

    std::unique_ptr<clsDbXml> events;
    std::unique_ptr<clsDbXml> shared;
    std::unique_ptr<clsDbXml> expired;

    // The folder of the event files: the setting "DataPath", by default the runtime path.
    std::string DataPath() const;
    // The current user: the setting "Owner", by default "Not Set".
    std::string Owner() const;
    bool Networked() const { return settings.Flag("Networked"); }

    StorageServices Storage();
    // An engine over the databases as they are now.
    clsReminder MakeReminder();
};

}  // namespace kaz
