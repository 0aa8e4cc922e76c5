#include "core/Startup.h"

#include "core/Backup.h"
#include "core/Conversion.h"
#include "core/Names.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

namespace kaz {

namespace {

constexpr std::string_view kConvertedText =
    "Your KAZ2 database has been converted to the new XML format (events.xml)\r\n"
    "If you are using KAZ in networked mode, other users' shared events won't show up until they also "
    "update to this new version.\r\n"
    "IMPORTANT: If you see any errors in your event list, simply delete events.xml and restart KAZ to "
    "recreate it from your original events.dat file.";

}  // namespace

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
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()})
        database->KeepOverwrittenIn(JoinPath(app_.runtimePath, kBackupFolder));
    app_.ApplySharing();

    LoadEvents(eventsFile, expiredFile);
    BackUp();
}

void Startup::LoadEvents(const std::string& eventsFile, const std::string& expiredFile) {
    const Conversion local = ConvertOldDatabase(app_, *app_.events, eventsFile);
    if (local == Conversion::Done) app_.platform.dialogs.Message(std::string(kConvertedText));
    const Conversion expired = ConvertOldDatabase(app_, *app_.expired, expiredFile);

    // After a conversion that failed, the memory may hold what no file holds yet.
    if (local != Conversion::Failed) app_.events->LoadDB(eventsFile);
    app_.log.LogEvent("Local events loaded");
    if (expired != Conversion::Failed) app_.expired->LoadDB(expiredFile);
    app_.log.LogEvent("Expired events loaded");
}

void Startup::BackUp() {
    if (app_.settings.Flag("NoAutoBackups"))
        app_.log.LogEvent("Autobackups disabled");
    else if (MakeAutoBackup(app_, "Autobackup"))
        app_.log.LogEvent("Data automatically zipped to Autobackups folder in " + app_.DataPath());
}

}  // namespace kaz
