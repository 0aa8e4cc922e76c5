#include "core/Startup.h"

#include "core/Names.h"
#include "platform/Files.h"

namespace kaz {

void Startup::Run() {
    app_.log.LogEvent("KAZ Startup", true);
    LoadOptions();
    DecideUserMode();
    app_.settingsInitialised = true;
    if (app_.Owner() != kNoOwner) OpenDatabases();
    app_.MakeReminder().UpdateAllEvents();
}

void Startup::LoadOptions() {
    app_.settingsFileName = JoinPath(app_.runtimePath, kSettingsFile);
    app_.settings.LoadSettings(app_.settingsFileName);
    app_.log.LogEvent("Options loaded");
    app_.log.LogEvent("Loading category names");
    app_.layers.LoadLayers();
}

void Startup::DecideUserMode() {
    if (app_.Owner() != kNoOwner) {
        app_.log.LogEvent("Not forcing single user mode");
        return;
    }
    app_.log.LogEvent("Forcing single user mode");
    app_.settings.StoreSetting("Owner", std::string(kSingleUser));
    app_.settings.StoreSetting("DataPath", app_.runtimePath);
    app_.settings.SaveSettings(app_.settingsFileName);
}

void Startup::OpenDatabases() {
    app_.sharedFileName = SharedFileName(app_.Owner());
    app_.log.LogEvent("Shared DB file: " + app_.sharedFileName);
    const std::string eventsFile = JoinPath(app_.DataPath(), kEventsFile);
    const std::string expiredFile = JoinPath(app_.DataPath(), kExpiredFile);
    app_.log.LogEvent("DB file: " + eventsFile);
    app_.log.LogEvent("Expired DB file: " + expiredFile);

    app_.events = std::make_unique<clsDbXml>(app_.Storage());
    app_.shared = std::make_unique<clsDbXml>(app_.Storage());
    app_.expired = std::make_unique<clsDbXml>(app_.Storage());

    app_.events->LoadDB(eventsFile);
    app_.log.LogEvent("Local events loaded");
    app_.expired->LoadDB(expiredFile);
    app_.log.LogEvent("Expired events loaded");
}

}  // namespace kaz
