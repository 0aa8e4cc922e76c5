#include "core/Backup.h"

#include "core/Names.h"
#include "core/cSHAREDZipFiles.h"
#include "platform/DateText.h"
#include "platform/Files.h"

#include <algorithm>
#include <vector>

namespace kaz {

namespace {

// A day's name comes from the locale, where the user may have put anything.
std::string SafeFileName(std::string name) {
    std::replace_if(name.begin(), name.end(), IsForbiddenInFileName, '_');
    return name;
}

std::vector<std::string> FilesToKeep(const Application& app) {
    const std::string& events = app.events->DBFilename();
    const std::string& expired = app.expired->DBFilename();
    return {events,
            expired,
            app.settingsFileName,
            app.log.CurrentLogFilename(),
            JoinPath(app.DataPath(), kTaskFile),
            WithExtension(events, kOldExtension),
            WithExtension(expired, kOldExtension)};
}

}  // namespace

std::string AutoBackupFile(const Application& app, const std::string& word) {
    const std::string day = FormatDate(app.platform.clock.Today(), "DDD", app.platform.locale.Data());
    return JoinPath(JoinPath(app.runtimePath, kBackupFolder), SafeFileName(day + " " + word + ".zip"));
}

bool MakeAutoBackup(Application& app, const std::string& word) {
    try {
        const std::string archive = AutoBackupFile(app, word);
        app.platform.files.CreateFolder(FolderOf(archive));
        cSHAREDZipFiles zip(app.platform.zip);
        zip.Setup();
        zip.ZipFileName(archive);
        for (const std::string& fileName : FilesToKeep(app))
            zip.AddFile(fileName);
        const bool made = zip.MakeZipFile() == kZipSuccess;
        if (!zip.GetLastMessage().empty()) app.log.LogEvent(zip.GetLastMessage());
        app.log.LogEvent("Backup to " + archive + (made ? " complete" : " failed"));
        return made;
    } catch (...) {
        app.log.Report(CurrentError(), "MakeAutoBackup", "Backup");
        return false;
    }
}

}  // namespace kaz
