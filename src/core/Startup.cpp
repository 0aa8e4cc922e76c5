#include "core/Startup.h"

#include "core/Backup.h"
#include "core/EventFiles.h"
#include "core/Names.h"
#include "platform/Files.h"

namespace kaz {

void Startup::Run() {
    app_.log.LogEvent("KAZ Startup", true);
    LoadOptions();
    DecideUserMode();
    app_.settingsInitialised = true;
    if (app_.Owner() != kNoOwner) {
        EventFiles(app_).Open();
        BackUp();
    }
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

void Startup::BackUp() {
    if (app_.settings.Flag("NoAutoBackups"))
        app_.log.LogEvent("Autobackups disabled");
    else if (MakeAutoBackup(app_, "Autobackup"))
        app_.log.LogEvent("Data automatically zipped to Autobackups folder in " + app_.DataPath());
}

}  // namespace kaz
