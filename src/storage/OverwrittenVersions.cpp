#include "storage/OverwrittenVersions.h"

#include "base/ErrorTrap.h"
#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Files.h"
#include "platform/Locale.h"

namespace kaz {

bool OverwrittenVersions::Keep(const std::string& fileName, FileTime date) const {
    if (folder_.empty()) return true;
    const std::string stem = WithExtension(FileNameOf(fileName), "");
    const std::string time =
        FormatDate(services_.clock.Now(), "YYYY-MM-DD HH.NN.SS", services_.locale.Data());
    std::string kept = JoinPath(folder_, stem + " (changed by another, " + time + ")");
    // Two of them can be found within a second.
    if (FileExists(services_.files, kept + ".xml")) kept += " " + std::to_string(date);
    ErrorTrap trap(services_.log, "SaveDB", "clsDbXml");
    const bool done = trap([&] {
        services_.files.CreateFolder(folder_);
        WriteWholeFile(services_.files, kept + ".xml", ReadWholeFile(services_.files, fileName));
    });
    services_.log.LogEvent(fileName + " was changed by another program. " +
                           (done ? "Its version is kept as " + kept + ".xml" : "It is not written over."));
    return done;
}

}  // namespace kaz
