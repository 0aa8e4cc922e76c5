#include "core/Startup.h"

#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "core/Backup.h"
#include "core/ClockGuard.h"
#include "core/DataWatch.h"
#include "core/DueSince.h"
#include "core/EventFiles.h"
#include "platform/Files.h"
#include "platform/MessagePump.h"
#include "platform/SafeFileWriter.h"
#include "storage/Owner.h"
#include "support/Names.h"
#include "support/SettingsText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kaz {

namespace {

constexpr const char* kBackupWord = "Autobackup";
constexpr std::string_view kDataPath = "DataPath";
constexpr std::string_view kOwnDataPath = "OwnDataPath";  // the data path, if that is the own folder
constexpr int kPatience = 5000;                           // milliseconds
constexpr int kPause = 250;
constexpr const char* kDeath = "Ended unexpectedly";
constexpr std::size_t kMostDueTold = 12;

// One is enough: it is that of the last run that died.
std::string LogOfDeath(const std::string& log) {
    return JoinPath(FolderOf(log), WithExtension(FileNameOf(log), " (ended unexpectedly).txt"));
}

}  // namespace

void Startup::Run() {
    BeginRun();
    app_.log.LogEvent("KAZ Startup", true);
    LoadOptions();
    DecideUserMode();
    FollowFolder();
    app_.settingsInitialised = true;
    if (app_.Owner() != kNoOwner) {
        EventFiles(app_).Open();
        app_.dataWatch->States().WatchGone();
        app_.dataWatch->TakeOver(movedFrom_);
        BackUp();
        RemoveAbandoned();
        TellOfDeath();
    }
    app_.BeginOutcomes();
    app_.clockGuard->Look();
    app_.MakeReminder().UpdateAllEvents();
}

// Comes before the new log takes the old one's place.
void Startup::BeginRun() {
    died_ = app_.runMark.Begin(app_.runtimePath);
    if (!died_) return;
    const std::string log = app_.log.CurrentLogFilename();
    ErrorTrap trap(app_.log, "BeginRun", "Startup");
    trap([&] {
        if (FileExists(app_.platform.files, log)) app_.platform.files.Replace(log, LogOfDeath(log));
    });
}

void Startup::LoadOptions() {
    app_.settingsFileName = JoinPath(app_.runtimePath, kSettingsFile);
    WaitForSettings();
    app_.settings.LoadSettings(app_.settingsFileName);
    app_.log.LogEvent("Options loaded");
    app_.log.LogEvent("Loading category names");
    app_.layers.LoadLayers();
}

// Without its settings the program would be another user's, on another folder. A virus scanner or a program
// that synchronises lets go of the file soon.
void Startup::WaitForSettings() {
    const std::string& file = app_.settingsFileName;
    for (int waited = 0;; waited += kPause) {
        try {
            ReadSettingsText(app_.platform.files, file);
            return;
        } catch (const RuntimeError& error) {
            if (waited >= kPatience)
                throw RuntimeError(error.Number(),
                                   "Your settings file " + file +
                                       " could not be read, and nothing is changed: " + error.Description());
        }
        app_.platform.pump.Wait(kPause);
    }
}

// A folder that holds both the program's settings and its events goes on with its own events when it gets
// another drive letter, or is copied. The absolute path stays what is stored, for programs that know nothing
// of this.
void Startup::FollowFolder() {
    const FileSystem& files = app_.platform.files;
    const auto same = [&](const std::string& a, const std::string& b) {
        return app_.platform.locale.Folding().Equal(WithoutTrailingBackslash(a), WithoutTrailingBackslash(b));
    };
    const std::string path = app_.DataPath();
    const bool known = app_.settings.IsSettingPresent(kOwnDataPath);
    const bool moved =
        known ? same(app_.settings.TextOr(kOwnDataPath, ""), path)
              : FileExists(files, JoinPath(app_.runtimePath, kEventsFile)) && !FolderExists(files, path);
    if (moved && !same(path, app_.runtimePath)) {
        app_.log.LogEvent("The data folder has moved from " + path + " to " + app_.runtimePath);
        app_.settings.StoreSetting("DataPath", app_.runtimePath);
        movedFrom_ = path;
    }
    const bool own = same(app_.DataPath(), app_.runtimePath);
    const std::string noted = own ? app_.DataPath() : std::string();
    if (path == app_.DataPath() && noted == app_.settings.TextOr(kOwnDataPath, "") && known) return;
    app_.settings.StoreSetting(kOwnDataPath, noted);
    app_.settings.SaveOnly(app_.settingsFileName, std::array{kDataPath, kOwnDataPath});
}

void Startup::DecideUserMode() {
    if (app_.Owner() != kNoOwner) {
        app_.log.LogEvent("Not forcing single user mode");
        return;
    }
    app_.log.LogEvent("Forcing single user mode");
    app_.settings.StoreSetting("Owner", std::string(kSingleUser));
    if (!app_.settings.IsSettingPresent("DataPath")) app_.settings.StoreSetting("DataPath", app_.runtimePath);
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
    std::vector<std::string> saved{app_.settingsFileName,      app_.events->DBFilename(),
                                   app_.expired->DBFilename(), JoinPath(app_.DataPath(), kTaskFile),
                                   app_.sideFile.Path(),       AutoBackupFile(app_, kBackupWord)};
    if (app_.Networked()) saved.push_back(app_.Folder().FileOf(app_.Owner()));
    int removed = 0;
    ErrorTrap trap(app_.log, "RemoveAbandoned", "Startup");
    for (const std::string& file : saved)
        trap([&] { removed += SafeFileWriter::DeleteAbandoned(app_.platform.files, file); });
    if (removed > 0)
        app_.log.LogEvent("Removed what saves that were broken off had left: " + std::to_string(removed) +
                          (removed == 1 ? " file" : " files"));
}

// Comes before the events move on to their next days.
void Startup::TellOfDeath() {
    if (!died_) return;
    const LocaleData& locale = app_.platform.locale.Data();
    const DateValue now = app_.platform.clock.Now();
    const DateValue end = died_->lastSign.value_or(now);
    const bool daysAgo = now.Day() - end.Day() > 6;
    std::string text = "KAZ ended unexpectedly";
    if (died_->lastSign)
        text += " on " + FormatDate(end, "DDD", locale) +
                (daysAgo ? " " + GeneralDateText(end.DateOnly(), locale) : "") + " at " +
                FormatDate(end, "HH:NN", locale);
    const std::vector<std::string> due =
        DueSince(*app_.events, VisibleEvents(app_.settings), end, now, locale);
    text += due.empty() ? "; no alarms since then." : "; alarms since then: ";
    for (std::size_t i = 0; i < std::min(due.size(), kMostDueTold); ++i)
        text += (i ? "; " : "") + due[i];
    if (due.size() > kMostDueTold) text += "; and " + std::to_string(due.size() - kMostDueTold) + " more";
    app_.log.LogEvent(text);
    Health& health = app_.health;
    health.Tell({kDeath,
                 due.empty() ? Health::Weight::Note : Health::Weight::Warning,
                 text,
                 {{"OK", [&health] { health.Clear(kDeath); }}}});
}

}  // namespace kaz
