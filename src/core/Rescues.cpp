#include "core/Rescues.h"

#include "base/DateText.h"
#include "core/Application.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/SystemInfo.h"
#include "support/Names.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kStem = "KAZ rescue";
constexpr int kMostFiles = 20;  // in one folder

// Not one that was put aside because it could not all be read.
bool IsRescue(std::string_view name) {
    return name.starts_with(kStem) && name.ends_with(".txt") &&
           name.find("(damaged") == std::string_view::npos;
}

}  // namespace

std::vector<std::string> Rescues::Folders() const {
    const std::string local = app_.platform.system.LocalFolder();
    if (local.empty()) return {app_.runtimePath};
    return {app_.runtimePath, JoinPath(local, kApplicationName)};
}

// That of another data folder stays.
std::string Rescues::NameIn(const std::string& folder) const {
    std::string file = JoinPath(folder, std::string(kStem) + ".txt");
    for (int number = 2; number <= kMostFiles && FileExists(app_.platform.files, file); ++number) {
        if (std::find(files_.begin(), files_.end(), file) != files_.end()) break;
        file = JoinPath(folder, std::string(kStem) + " " + std::to_string(number) + ".txt");
    }
    return file;
}

bool Rescues::IsSame(const std::string& folder, const std::string& other) const {
    return app_.platform.locale.Folding().Equal(WithoutTrailingBackslash(folder),
                                                WithoutTrailingBackslash(other));
}

// One that names no folder is of a version that did not know of others.
bool Rescues::IsOurs(const Rescued& rescued, const std::string& file, const std::string& movedFrom) const {
    const auto isHere = [&](const std::string& folder, const std::string& own) {
        return folder.empty() || IsSame(folder, own) || (!movedFrom.empty() && IsSame(folder, movedFrom));
    };
    const bool settings = rescued.settings.empty() || IsSame(FolderOf(file), app_.runtimePath) ||
                          isHere(rescued.programFolder, app_.runtimePath);
    return settings && isHere(rescued.dataFolder, app_.DataPath());
}

void Rescues::Read(const std::string& movedFrom, const std::function<void(const Rescued&)>& take) {
    FileSystem& files = app_.platform.files;
    ErrorTrap trap(app_.log, "Read", "Rescues");
    const auto read = [&](const std::string& file) {
        bool whole = false;
        const Rescued rescued =
            RescueFile::Read(ReadWholeFile(files, file), app_.platform.locale, app_.log, whole);
        if (!IsOurs(rescued, file, movedFrom)) {
            app_.log.LogEvent(file + " belongs to the data folder " + rescued.dataFolder +
                              ", and is left for the next start there");
            return;
        }
        take(rescued);
        app_.log.LogEvent("Took over what " + file + " had kept" +
                          (whole ? "" : ", as far as it can be read"));
        if (whole) {
            files_.push_back(file);
            return;
        }
        const std::string time =
            FormatDate(app_.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", app_.platform.locale.Data());
        // Somebody may read more in it.
        files.Replace(file, WithExtension(file, " (damaged, " + time + ").txt"));
    };
    for (const std::string& folder : Folders())
        for (const std::string& name : files.FilesIn(folder))
            if (IsRescue(name)) trap([&] { read(JoinPath(folder, name)); });
}

std::string Rescues::Write(Rescued rescued) {
    rescued.dataFolder = app_.DataPath();
    rescued.programFolder = app_.runtimePath;
    const std::string text = RescueFile::TextOf(rescued);
    ErrorTrap trap(app_.log, "Write", "Rescues");
    for (const std::string& folder : Folders()) {
        std::string file = NameIn(folder);
        const bool done = trap([&] {
            app_.platform.files.CreateFolder(folder);
            WriteWholeFile(app_.platform.files, file, text);
        });
        if (!done) continue;
        // An older one elsewhere held no more than this one does.
        std::erase(files_, file);
        Delete();
        files_ = {file};
        return file;
    }
    return {};
}

void Rescues::Delete() {
    for (const std::string& file : std::exchange(files_, {})) {
        ErrorTrap trap(app_.log, "Delete", "Rescues");
        trap([&] { app_.platform.files.Delete(file); });
    }
}

}  // namespace kaz
