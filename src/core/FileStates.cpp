#include "core/FileStates.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Application.h"
#include "core/AwaitedFolder.h"
#include "core/Backup.h"
#include "core/DataWatch.h"
#include "core/JournalScope.h"
#include "core/Links.h"
#include "core/NamedEvents.h"
#include "core/Reason.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ZipArchiver.h"
#include "storage/TaskList.h"
#include "support/Names.h"

#include <utility>

namespace kaz {

namespace {

std::string KeyOf(const std::string& file) { return "State of " + FileNameOf(file); }

}  // namespace

void FileStates::WatchGone() {
    app_.events->OnGone([this](const std::vector<clsEvent>& gone) { TellGone(*app_.events, gone); });
    app_.expired->OnGone([this](const std::vector<clsEvent>& gone) { TellGone(*app_.expired, gone); });
}

void FileStates::Tell(clsDbXml& database) {
    const std::string& file = database.DBFilename();
    const std::string key = KeyOf(file);
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
    case FileState::Damaged: {
        const auto events = static_cast<std::size_t>(database.RecordCount());
        // What was only entered meanwhile is no copy of it.
        const bool isCopy = events > database.Unsaved().stored.size();
        Tell({file, "event", isCopy ? events : 0, app_.dataWatch->Kept(database),
              [this, &database](bool isThere) {
                  if (isThere)
                      database.LoadDB(database.DBFilename());
                  else
                      database.ExpectNoFile();
                  database.SaveDB();
                  app_.mainListIsStale = true;
              }});
        break;
    }
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
                          {{"Try again", [this] { app_.dataWatch->TryAgain(); }}},
                          Health::Sign::FolderAway});
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

void FileStates::OpenFolder(const std::string& file) const { OpenForUser(app_.platform, FolderOf(file)); }

// The memory, where the file was read once, is its last good copy; else a rescue or a backup has one.
void FileStates::Tell(const Damage& damage) {
    const std::string key = KeyOf(damage.file);
    const std::string text =
        "The file " + damage.file +
        " is damaged. KAZ leaves it as it is, and reads it as soon as it is whole again.";
    // The backups are not read anew on each tick.
    if (const Health::Notice* told = app_.health.Find(key); told && told->text == text) return;
    Health::Notice notice{key, Health::Weight::Alarm, text, {}};
    const bool isElsewhere = damage.listed == 0 && damage.kept == 0;
    if (const auto backup = isElsewhere ? NewestBackup(app_, damage.file) : std::nullopt) {
        const std::string date = GeneralDateText(backup->made.DateOnly(), app_.platform.locale.Data());
        notice.actions.push_back(
            {"Restore from the backup of " + date + " (" + Counted(backup->count, damage.one) + ")",
             [this, damage, archive = backup->archive] { Restore(damage, archive); }});
    }
    notice.actions.push_back({"Open the folder", [this, file = damage.file] { OpenFolder(file); }});
    notice.actions.push_back(
        {damage.listed > 0 ? "Save the " + Counted(damage.listed, damage.one) + " of the list"
         : damage.kept > 0 ? "Save the " + Counted(damage.kept, damage.one) + " that KAZ has kept"
                           : "Begin anew",
         [this, damage] { Restore(damage, {}); }});
    app_.health.Tell(std::move(notice));
}

void FileStates::Tell(const std::shared_ptr<TaskList>& tasks, const std::function<void()>& changed) {
    const std::string file = JoinPath(app_.DataPath(), kTaskFile);
    if (!tasks || !tasks->IsDamaged()) {
        app_.health.Clear(KeyOf(file));
        return;
    }
    Tell({file, "task", tasks->WasRead() ? tasks->Tasks().size() : 0, 0, [tasks, changed](bool isThere) {
              if (isThere)
                  tasks->Refresh();
              else
                  tasks->TakePlace();
              if (tasks->Unsaved()) tasks->Save();
              if (changed) changed();
          }});
}

// Without an archive, the file is made of what is in memory. The damaged one stays beside it, since somebody
// may read more in it.
void FileStates::Restore(const Damage& damage, const std::string& archive) {
    const std::string& file = damage.file;
    const std::string time =
        FormatDate(app_.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", app_.platform.locale.Data());
    const std::string kept =
        JoinPath(FolderOf(file), WithExtension(FileNameOf(file), " (damaged, " + time + ").xml"));
    try {
        const std::string text =
            archive.empty() ? std::string() : app_.platform.zip.ZpRead(archive, FileNameOf(file));
        app_.platform.files.Replace(file, kept);
        app_.log.LogEvent(file + " is damaged and was put aside as " + kept);
        if (!archive.empty()) {
            try {
                WriteWholeFile(app_.platform.files, file, text);
            } catch (...) {
                // Without any file, it would be a user who has no events.
                app_.platform.files.Replace(kept, file);
                throw;
            }
            app_.log.LogEvent("Restored " + file + " from " + archive);
        }
        const JournalScope scope(app_, "restoring of the file");
        damage.saved(!archive.empty());
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
                            const JournalScope scope(app_, "taking back");
                            database.PutOnTop({all, {}});
                            database.SaveDB();
                            app_.health.Clear(key);
                            app_.dataWatch->Tell();
                        }},
                       {"Leave it so", [this, key] { app_.health.Clear(key); }}}});
}

}  // namespace kaz
