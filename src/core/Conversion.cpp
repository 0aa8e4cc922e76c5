#include "core/Conversion.h"

#include "platform/BusyPointer.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "storage/clsDB2.h"
#include "support/Names.h"

#include <algorithm>
#include <vector>

namespace kaz {

namespace {

std::string NotReadText(const std::string& oldFile) {
    return "Your KAZ2 database " + oldFile +
           " could not be read and has not been converted. Nothing is saved until it can be read.\r\n"
           "Please make sure that no other program uses the file, and start KAZ again. If the file is "
           "damaged, "
           "put it back from a backup, or delete it to begin with an empty list.";
}

// Nobody has events without any text, but a file that has become zeros reads as some.
bool HoldsEvents(const clsDB2& old) {
    const std::vector<clsEvent>& events = old.AllEvents();
    return std::any_of(events.begin(), events.end(), [](const clsEvent& event) {
        return event.Desc().find_first_not_of(std::string_view("\0 ", 2)) != std::string::npos;
    });
}

std::string NotWrittenText(const std::string& fileName) {
    return "Your KAZ2 database could not be converted: " + fileName +
           " could not be written.\r\n"
           "Your events are shown all the same, and KAZ tries to save them with every change. "
           "Please make sure that the folder can be written to.";
}

}  // namespace

Conversion ConvertOldDatabase(Application& app, clsDbXml& target, const std::string& fileName) {
    const std::string oldFile = WithExtension(fileName, kOldExtension);
    if (app.platform.files.Kind(fileName) != PathKind::Missing || !FileExists(app.platform.files, oldFile))
        return Conversion::NotNeeded;

    target.SetDBFilename(fileName);
    bool read = false;
    bool written = false;
    {
        const BusyPointer busy(app.platform.pump);
        clsDB2 old(app.Storage(), app.sounds);
        read = old.LoadDB(oldFile) && HoldsEvents(old);
        if (read) {
            old.ExportToXML(target);
            written = target.SaveDB();
        }
    }
    if (written) return Conversion::Done;
    if (!read) target.KeepFileMissing();
    app.platform.dialogs.Message(read ? NotWrittenText(fileName) : NotReadText(oldFile));
    return Conversion::Failed;
}

}  // namespace kaz
