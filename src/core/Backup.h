#pragma once

#include "core/Application.h"

#include <optional>
#include <string>

namespace kaz {

// The archive of today: named by the day of the week and `word`, in "Autobackups" under the application's
// folder, so that a week of backups is kept and nothing has to be pruned.
std::string AutoBackupFile(const Application& app, const std::string& word);

// Packs the user's data, the settings and the log into that archive. Returns whether all that is there went
// in; the log tells how it went.
bool MakeAutoBackup(Application& app, const std::string& word);

// A file's time, as the user's clock showed it.
DateValue DateOf(const Application& app, FileTime time);

// The newest of the archives whose copy of a file holds anything: events, tasks, or a side file's lines.
struct FileBackup {
    std::string archive;
    DateValue made;
    std::size_t count = 0;
};
std::optional<FileBackup> NewestBackup(const Application& app, const std::string& fileName);

// The text of the side file in the newest backup that has it, "" without one; the user is told of it.
std::string SideFileOfBackup(Application& app);

}  // namespace kaz
