#include "core/FileStates.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Application.h"
#include "core/AwaitedFolder.h"
#include "core/Backup.h"
#include "core/DataWatch.h"
#include "core/NamedEvents.h"
#include "core/Reason.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/ZipArchiver.h"

#include <utility>

namespace kaz {

namespace {

std::string KeyOf(const clsDbXml& database) { return "State of " + FileNameOf(database.DBFilename()); }

}  // namespace

void FileStates::WatchGone() {
    app_.events->OnGone([this](const std::vector<clsEvent>& gone) { TellGone(*app_.events, gone); });
    app_.expired->OnGone([this](const std::vector<clsEvent>& gone) { TellGone(*app_.expired, gone); });
}

void FileStates::Tell(clsDbXml& database) {
    const std::string key = KeyOf(database);
    const std::string& file = database.DBFilename();
    const Health::Action look{"Open the folder", [this, file] { OpenFolder(file); }};
    switch (database.State()) {
    case FileState::NotRead:
        app_.health.Tell({key,
                          Health::Weight::Warning,
                          "Your events in " + file + " cannot be read: " +
                              (database.ReadFault() ? Reason(app_.platform.files, file, *database.ReadFault())
                                                    : "the disk reports a fault") +
                              ". KAZ tries again every half minute, and writes nothing over them.",
                          {{"Try again", [this] { app_.dataWatch->TryAgain(); }}, look}});
        break;
    case FileState::Damaged: TellDamaged(database, key); break;
    case FileState::SetAside:
        app_.health.Tell({key,
                          Health::Weight::Note,
                          "The file " + file +
                              " was deleted. Your events are still here; the next start converts those of "
                              "the older version anew.",
                          {look}});
        break;
    case FileState::FolderAway:
        // One folder is told once.
        if (&database != app_.events.get() || app_.awaitedFolder->IsWaiting()) break;
        app_.health.Tell({key,
                          Health::Weight::Warning,
                          "The folder of your events, " + FolderOf(file) +
                              ", is not there. They stay in the list, and KAZ looks for the folder every "
                              "half minute.",
                          {{"Try again", [this] { app_.dataWatch->TryAgain(); }}}});
        break;
    case FileState::Fine:
    case FileState::NotBack:
    case FileState::Vanished: app_.health.Clear(key); break;
    }
}

void FileStates::TellDamagedSettings() {
    const std::string kept = app_.settings.TakeDamagedCopy();
    if (kept.empty()) return;
    const std::string key = "State of the settings";
    app_.health.Tell({key,
                      Health::Weight::Note,
                      "Another program has damaged the settings file " + app_.settingsFileName +
                          ". KAZ has written yours anew, and keeps the damaged file as " + kept + ".",
                      {{"Open the folder", [this, kept] { OpenFolder(kept); }},
                       {"OK", [this, key] { app_.health.Clear(key); }}}});
}

void FileStates::OpenFolder(const std::string& file) const {
    try {
        app_.platform.shell.Open(FolderOf(file));
    } catch (const RuntimeError& error) {
        app_.platform.dialogs.Message(FolderOf(file) + " could not be opened: " + error.Description());
    }
}

// The memory, where the file was read once, is its last good copy; else a backup has one.
void FileStates::TellDamaged(clsDbXml& database, const std::string& key) {
    const std::string text =
        "The file " + database.DBFilename() +
        " is damaged. KAZ leaves it as it is, and reads it as soon as it is whole again.";
    // The backups are not read anew on each tick.
    if (const Health::Notice* told = app_.health.Find(key); told && told->text == text) return;
    Health::Notice notice{key, Health::Weight::Alarm, text, {}};
    const auto events = static_cast<std::size_t>(database.RecordCount());
    // What was only entered meanwhile is no copy of it.
    const bool isCopy = events > database.Unsaved().stored.size();
    const std::size_t kept = app_.dataWatch->Kept(database);
    const auto backup = isCopy || kept > 0 ? std::nullopt : NewestEventBackup(app_, database.DBFilename());
    if (backup) {
        const std::string date = GeneralDateText(backup->made.DateOnly(), app_.platform.locale.Data());
        notice.actions.push_back(
            {"Restore from the backup of " + date + " (" + Counted(backup->events, "event") + ")",
             [this, &database, archive = backup->archive] { Restore(database, archive); }});
    }
    notice.actions.push_back({"Open the folder", [this, &database] { OpenFolder(database.DBFilename()); }});
    notice.actions.push_back({isCopy     ? "Save the " + Counted(events, "event") + " of the list"
                              : kept > 0 ? "Save the " + Counted(kept, "event") + " that KAZ has kept"
                                         : "Begin anew",
                              [this, &database] { Restore(database, {}); }});
    app_.health.Tell(std::move(notice));
}

// Without an archive, the file is made of what is in memory. The damaged one stays beside it, since somebody
// may read more in it.
void FileStates::Restore(clsDbXml& database, const std::string& archive) {
    const std::string file = database.DBFilename();
    const std::string time =
        FormatDate(app_.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", app_.platform.locale.Data());
    const std::string kept =
        JoinPath(FolderOf(file), WithExtension(FileNameOf(file), " (damaged, " + time + ").xml"));
    try {
        const std::string text =
            archive.empty() ? std::string() : app_.platform.zip.ZpRead(archive, FileNameOf(file));
        app_.platform.files.Replace(file, kept);
        app_.log.LogEvent(file + " is damaged and was put aside as " + kept);
        if (archive.empty()) {
            database.ExpectNoFile();
        } else {
            WriteWholeFile(app_.platform.files, file, text);
            database.LoadDB(file);
            app_.log.LogEvent("Restored " + file + " from " + archive);
        }
        database.SaveDB();
    } catch (...) {
        const ErrorInfo error = CurrentError();
        app_.log.Report(error, "Restore", "FileStates");
        app_.platform.dialogs.Message("That did not work: " + Reason(app_.platform.files, file, error) + ".");
    }
    app_.dataWatch->Tell();
}

void FileStates::TellGone(clsDbXml& database, const std::vector<clsEvent>& gone) {
    const std::string key = "Gone from " + FileNameOf(database.DBFilename());
    app_.health.Tell({key,
                      Health::Weight::Warning,
                      Counted(gone.size(), "event") + (gone.size() == 1 ? " is" : " are") + " gone from " +
                          database.DBFilename() + ", which another program has changed: " + NameOf(gone) +
                          ".",
                      {{gone.size() == 1 ? "Take it back" : "Take them back",
                        [this, &database, key, all = gone] {
                            database.PutOnTop({all, {}});
                            database.SaveDB();
                            app_.health.Clear(key);
                            app_.dataWatch->Tell();
                        }},
                       {"Leave it so", [this, key] { app_.health.Clear(key); }}}});
}

}  // namespace kaz
