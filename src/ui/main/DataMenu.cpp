#include "ui/main/DataMenu.h"

#include "core/Backup.h"
#include "core/Links.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "support/Names.h"

namespace kaz {

// Kept on purpose: this is the log's default name, not the one that the program writes, so there is something
// to see only where a log of that name exists.
void DataMenu::ShowLog() {
    const std::string fileName = JoinPath(app_.runtimePath, cSharedLogging::kDefaultName);
    const std::string ofSession = app_.log.CurrentLogFilename();
    if (FileExists(app_.platform.files, fileName))
        OpenForUser(app_.platform, fileName);
    else if (app_.platform.dialogs.AskYesNo("There is no log \"" + fileName +
                                            "\".\r\nThis session's log is \"" + ofSession +
                                            "\". Do you want to see it?"))
        OpenForUser(app_.platform, ofSession);
}

void DataMenu::ShowChanges() {
    const std::string fileName = app_.journal.FileName();
    if (FileExists(app_.platform.files, fileName))
        OpenForUser(app_.platform, fileName);
    else
        app_.platform.dialogs.Message("No event has been changed yet. \"" + fileName +
                                      "\" is made with the first change.");
}

void DataMenu::BackUp() {
    Dialogs& dialogs = app_.platform.dialogs;
    if (!MakeAutoBackup(app_, "Manual")) {
        dialogs.Message("Backup failed.");
        return;
    }
    const std::string folder = JoinPath(app_.runtimePath, kBackupFolder);
    const bool inDataPath = JoinPath(app_.DataPath(), kBackupFolder) == folder;
    if (dialogs.AskYesNo("Backup complete. Your files were zipped to the AutoBackups folder in " +
                         app_.DataPath() + "\r\nWould you like to open this folder now?" +
                         (inDataPath ? "" : "\r\n(The archive is in " + folder + ")")))
        OpenForUser(app_.platform, folder);
}

// Archives are made beside the program's files, which need not be where the data are.
void DataMenu::ViewBackups() {
    const std::string ofData = JoinPath(app_.DataPath(), kBackupFolder);
    const bool isThere = FolderExists(app_.platform.files, ofData);
    OpenForUser(app_.platform, isThere ? ofData : JoinPath(app_.runtimePath, kBackupFolder));
}

}  // namespace kaz
