#include "core/Startup.h"

#include "core/Backup.h"
#include "core/EventFiles.h"
#include "core/Names.h"
#include "platform/Files.h"
#include "platform/SafeFileWriter.h"
#include "storage/Owner.h"

namespace kaz {

namespace {
constexpr const char* kBackupWord = "Autobackup";
}

void Startup::Run() {
    app_.log.LogEvent("KAZ Startup", true);
    LoadOptions();
    DecideUserMode();
    app_.settingsInitialised = true;
    if (app_.Owner() != kNoOwner) {
        EventFiles(app_).Open();
        BackUp();
        RemoveAbandoned();
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
    else if (MakeAutoBackup(app_, kBackupWord))
        app_.log.LogEvent("Data automatically zipped to Autobackups folder in " + app_.DataPath());
}

// A save that was broken off leaves an unfinished file beside the whole one.
void Startup::RemoveAbandoned() {
    std::vector<std::string> saved{app_.settingsFileName, app_.events->DBFilename(),
                                   app_.expired->DBFilename(), JoinPath(app_.DataPath(), kTaskFile),
                                   AutoBackupFile(app_, kBackupWord)};
    if (app_.Networked()) saved.push_back(app_.Folder().FileOf(app_.Owner()));
    int removed = 0;
    ErrorTrap trap(app_.log, "RemoveAbandoned", "Startup");
    for (const std::string& file : saved)
        trap([&] { removed += SafeFileWriter::DeleteAbandoned(app_.platform.files, file); });
    if (removed > 0)
        app_.log.LogEvent("Removed what saves that were broken off had left: " + std::to_string(removed) +
                          (removed == 1 ? " file" : " files"));
}

}  // namespace kaz
