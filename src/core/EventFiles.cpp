#include "core/EventFiles.h"

#include "core/AwaitedFolder.h"
#include "core/Backup.h"
#include "core/Conversion.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "support/Names.h"

namespace kaz {

namespace {

constexpr std::string_view kConvertedText =
    "Your KAZ2 database has been converted to the new XML format (events.xml)\r\n"
    "If you are using KAZ in networked mode, other users' shared events won't show up until they also "
    "update to this new version.\r\n"
    "IMPORTANT: If you see any errors in your event list, simply delete events.xml and restart KAZ to "
    "recreate it from your original events.dat file.";

// Whether the database's file has all that the memory has; if not, it is saved now.
bool IsSaved(clsDbXml& database) { return !database.HasUnsaved() || database.SaveDB(); }

}  // namespace

void EventFiles::Open() {
    NameSharedFile();
    app_.MakeDatabases();
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()}) {
        database->KeepOverwrittenIn(JoinPath(app_.runtimePath, kBackupFolder));
        database->AskForBackup(
            [app = &app_, database] { return NewestBackup(*app, database->DBFilename()).has_value(); });
    }
    app_.events->PairWith(*app_.expired);
    app_.expired->PairWith(*app_.events);
    app_.ApplySharing();
    Load();
}

// The databases themselves stay, since a window may be working with them.
void EventFiles::Reopen() {
    if (!app_.events) {
        Open();
        return;
    }
    NameSharedFile();
    const std::string before = app_.events->DBFilename();
    if (!KeepsOldFolder()) Load();
    app_.sounds.Initialise();
    app_.ApplySharing();
    ReopenShared();
    if (app_.events->DBFilename() == before) return;
    app_.undo.Clear();  // its events are in other files
    app_.MakeReminder().UpdateAllEvents();
}

void EventFiles::LoadLate() {
    app_.sideFile.Refresh();
    for (clsDbXml* database : {app_.events.get(), app_.expired.get()}) {
        const std::string file = database->DBFilename();
        if (!FileExists(app_.platform.files, file)) database->ExpectNoFile();
        if (ConvertOldDatabase(app_, *database, file) == Conversion::NotNeeded) database->LoadDB(file);
    }
    app_.BeginOutcomes();
    app_.sounds.Initialise();
}

bool EventFiles::AreIn(const FileSystem& files, const std::string& folder) {
    const std::string file = JoinPath(folder, kEventsFile);
    return FileExists(files, file) || FileExists(files, WithExtension(file, kOldExtension));
}

void EventFiles::Copy(FileSystem& files, const std::string& from, const std::string& to) {
    for (const std::string_view name : {kSoundsFile, kTaskFile, kSideFile, kExpiredFile, kEventsFile}) {
        const std::string source = JoinPath(from, name);
        const std::string target = JoinPath(to, name);
        if (FileExists(files, source) && !FileExists(files, target))
            WriteWholeFile(files, target, ReadWholeFile(files, source));
    }
}

void EventFiles::NameSharedFile() {
    app_.sharedFileName = SharedFolder::NameOf(app_.Owner());
    app_.log.LogEvent("Shared DB file: " + app_.sharedFileName);
}

void EventFiles::Load() {
    const std::string eventsFile = JoinPath(app_.DataPath(), kEventsFile);
    const std::string expiredFile = JoinPath(app_.DataPath(), kExpiredFile);
    app_.log.LogEvent("DB file: " + eventsFile);
    app_.log.LogEvent("Expired DB file: " + expiredFile);

    if (const std::string side = SideFile::PathFor(eventsFile); app_.sideFile.Path() != side)
        app_.sideFile.Open(side);

    Conversion local = Conversion::NotNeeded;
    Conversion expired = Conversion::NotNeeded;
    if (app_.events->DBFilename() != eventsFile) {
        // Else the events of one folder would be shown as those of another that cannot be read.
        app_.events->Forget();
        app_.expired->Forget();
        local = ConvertOldDatabase(app_, *app_.events, eventsFile);
        if (local == Conversion::Done) app_.platform.dialogs.Message(std::string(kConvertedText));
        expired = ConvertOldDatabase(app_, *app_.expired, expiredFile);
    }
    // After a conversion that failed, the memory may hold what no file holds yet.
    if (local != Conversion::Failed) app_.events->LoadDB(eventsFile);
    app_.log.LogEvent("Local events loaded");
    if (expired != Conversion::Failed) app_.expired->LoadDB(expiredFile);
    app_.log.LogEvent("Expired events loaded");
    app_.awaitedFolder->AfterLoad();
}

// A file takes the place of another in the memory only when that has all that the memory has.
bool EventFiles::KeepsOldFolder() {
    const bool saved = IsSaved(*app_.events);
    if (IsSaved(*app_.expired) && saved) return false;
    const std::string folder = FolderOf(app_.events->DBFilename());
    if (app_.DataPath() == folder) return true;
    app_.settings.StoreSetting("DataPath", folder);
    app_.settings.SaveSettings(app_.settingsFileName);
    app_.platform.dialogs.Message("Your latest changes could not be saved in " + folder +
                                  ".\r\nKAZ stays with this folder until they are saved.");
    return true;
}

void EventFiles::ReopenShared() {
    app_.shared->Forget();
    if (!app_.Networked()) return;
    // A save publishes what is shared, and reads the others' files.
    app_.events->SaveDB();
    app_.LoadShared();
}

}  // namespace kaz
