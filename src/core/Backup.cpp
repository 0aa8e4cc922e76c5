#include "core/Backup.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "core/KeptCopies.h"
#include "core/cSHAREDZipFiles.h"
#include "platform/Files.h"
#include "storage/EventXml.h"
#include "storage/TaskFile.h"
#include "support/Names.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kaz {

namespace {

constexpr const char* kCopyNotice = "Copy of the backup";
constexpr const char* kSideNotice = "Damaged side file";
constexpr std::size_t kMostRicher = 3;  // of each archive

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
            WithExtension(expired, kOldExtension),
            SideFile::PathFor(events)};
}

// An archive with more than twice as many events as there are now stays under a name of its own: what is gone
// may be gone by mistake, and a week later nothing else would have it.
void KeepRicher(Application& app, const std::string& archive) {
    FileSystem& files = app.platform.files;
    if (!FileExists(files, archive)) return;
    const std::size_t before = EventXml::CountIn(app.platform.zip.ZpRead(archive, std::string(kEventsFile)));
    const auto now = static_cast<std::size_t>(app.events->RecordCount());
    if (now * 2 >= before) return;
    const std::string beginning = WithExtension(FileNameOf(archive), "") + " (";
    const std::string time =
        FormatDate(app.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", app.platform.locale.Data());
    const std::string kept = beginning + "until " + time + ", " + std::to_string(before) + " events).zip";
    files.Replace(archive, JoinPath(FolderOf(archive), kept));
    app.log.LogEvent(archive + " holds far more events than there are now, and is kept as " + kept);
    RemoveOldest(files, FolderOf(archive), beginning, kept, kMostRicher);
}

// Of seven archives in one place nothing is left when the place is lost.
void CopyElsewhere(Application& app, const std::string& archive) {
    const std::string folder = app.settings.TextOr("SecondBackupFolder", "");
    if (folder.empty()) return;
    try {
        const std::string copy = JoinPath(folder, FileNameOf(archive));
        app.platform.files.CreateFolder(folder);
        KeepRicher(app, copy);
        WriteWholeFile(app.platform.files, copy, ReadWholeFile(app.platform.files, archive));
        app.log.LogEvent("Backup copied to " + copy);
        app.health.Clear(kCopyNotice);
    } catch (...) {
        const ErrorInfo error = CurrentError();
        app.log.Report(error, "CopyElsewhere", "Backup");
        app.health.Tell({kCopyNotice,
                         Health::Weight::Note,
                         "The backup could not be copied to " + folder + ": " + error.description + ".",
                         {{"OK", [&app] { app.health.Clear(kCopyNotice); }}}});
    }
}

}  // namespace

DateValue DateOf(const Application& app, FileTime time) {
    // From 1601 to the days of DateValue.
    constexpr double kUnitsPerDay = 864e9;
    constexpr double kDaysBefore = 109205;
    return app.platform.clock.LocalOf(
        DateValue::FromSerial(static_cast<double>(time) / kUnitsPerDay - kDaysBefore));
}

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
        // Without the events it would take the place of one that has them.
        const bool loaded = app.events->State() == FileState::Fine && app.expired->State() == FileState::Fine;
        if (loaded) KeepRicher(app, archive);
        const bool made = loaded && zip.MakeZipFile() == kZipSuccess;
        if (!zip.GetLastMessage().empty()) app.log.LogEvent(zip.GetLastMessage());
        app.log.LogEvent("Backup to " + archive + (made ? " complete" : " failed"));
        if (made) CopyElsewhere(app, archive);
        return made;
    } catch (...) {
        app.log.Report(CurrentError(), "MakeAutoBackup", "Backup");
        return false;
    }
}

std::optional<FileBackup> NewestBackup(const Application& app, const std::string& fileName) {
    const std::string wanted = FileNameOf(fileName);
    const auto countIn = wanted == kTaskFile   ? TaskFile::CountIn
                         : wanted == kSideFile ? SideFile::CountIn
                                               : EventXml::CountIn;
    const FileSystem& files = app.platform.files;
    const std::string folder = JoinPath(app.runtimePath, kBackupFolder);
    std::vector<std::pair<FileTime, std::string>> archives;
    for (const std::string& name : files.FilesIn(folder))
        if (const std::string path = JoinPath(folder, name); UpperAscii(name).ends_with(".ZIP"))
            archives.emplace_back(files.ModificationTime(path).value_or(0), path);
    std::sort(archives.rbegin(), archives.rend());
    for (const auto& [time, path] : archives)
        if (const std::size_t count = countIn(app.platform.zip.ZpRead(path, wanted)))
            return FileBackup{path, DateOf(app, time), count};
    return std::nullopt;
}

std::string SideFileOfBackup(Application& app) {
    const std::string name(kSideFile);
    const auto backup = NewestBackup(app, name);
    std::string text =
        "The file of skipped dates, ends of series, further warnings and answers was damaged. ";
    if (backup)
        text += "The one of " + GeneralDateText(backup->made.DateOnly(), app.platform.locale.Data()) +
                " has taken its place; what you changed since then is not in it.";
    else
        text += "No backup has it, so your events are without these now.";
    app.health.Tell(
        {kSideNotice, Health::Weight::Warning, text, {{"OK", [&app] { app.health.Clear(kSideNotice); }}}});
    return backup ? app.platform.zip.ZpRead(backup->archive, name) : std::string();
}

}  // namespace kaz
