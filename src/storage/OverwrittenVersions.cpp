#include "storage/OverwrittenVersions.h"

#include "base/DateText.h"
#include "base/ErrorTrap.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/SafeFileWriter.h"
#include "storage/EventFileWriter.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::size_t kMostVersions = 10;  // of one file, for one reason

std::string StemOf(const std::string& fileName) { return WithExtension(FileNameOf(fileName), ""); }

}  // namespace

bool OverwrittenVersions::Keep(const std::string& fileName) const {
    if (folder_.empty()) return true;
    const std::string reason = "changed by another";
    const std::string kept = PathFor(fileName, reason);
    ErrorTrap trap(stores_.log, "SaveDB", "clsDbXml");
    const bool done = trap([&] {
        stores_.platform.files.CreateFolder(folder_);
        WriteWholeFile(stores_.platform.files, kept, ReadWholeFile(stores_.platform.files, fileName));
    });
    stores_.log.LogEvent(fileName + " was changed by another program. " +
                         (done ? "Its version is kept as " + kept : "It is not written over."));
    if (done) trap([&] { DeleteOldest(fileName, reason); });
    return done;
}

bool OverwrittenVersions::KeepEvents(const std::string& fileName, const std::string& reason,
                                     const std::vector<clsEvent>& events) const {
    if (folder_.empty()) return true;
    const std::string kept = PathFor(fileName, reason);
    ErrorTrap trap(stores_.log, "LoadDB", "clsDbXml");
    const bool done = trap([&] {
        stores_.platform.files.CreateFolder(folder_);
        SafeFileWriter file(stores_.platform.files, kept);
        WriteEvents(events, [&](std::string_view piece) { file.Write(piece); });
        file.Commit();
    });
    if (!done) return false;
    stores_.log.LogEvent("Events of " + fileName + " are kept as " + kept);
    trap([&] { DeleteOldest(fileName, reason); });
    return true;
}

std::string OverwrittenVersions::PathFor(const std::string& fileName, const std::string& reason) const {
    const std::string time =
        FormatDate(stores_.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", stores_.platform.locale.Data());
    const std::string path = JoinPath(folder_, StemOf(fileName) + " (" + reason + ", " + time + ")");
    // Two of them can be found within a second.
    std::string unused = path + ".xml";
    for (std::size_t number = 2; number <= kMostVersions && FileExists(stores_.platform.files, unused);
         ++number)
        unused = path + " " + std::to_string(number) + ".xml";
    return unused;
}

void OverwrittenVersions::DeleteOldest(const std::string& fileName, const std::string& reason) const {
    std::vector<std::pair<FileTime, std::string>> versions;
    for (const std::string& name : stores_.platform.files.FilesIn(folder_)) {
        if (!name.starts_with(StemOf(fileName) + " (" + reason + ", ")) continue;
        const std::string path = JoinPath(folder_, name);
        versions.emplace_back(stores_.platform.files.ModificationTime(path).value_or(0), path);
    }
    std::sort(versions.begin(), versions.end());
    for (std::size_t oldest = 0; oldest + kMostVersions < versions.size(); ++oldest)
        stores_.platform.files.Delete(versions[oldest].second);
}

}  // namespace kaz
