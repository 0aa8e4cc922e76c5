#include "core/Backup.h"
#include "core/DataWatch.h"
#include "core/Links.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "support/Names.h"
#include "ui/main/frmMain.h"

namespace kaz {

// While it lives, the refresh timer stands still: no list is filled behind the dialog. Alarms have their one
// minute and ring in it all the same, and so does a new day begin. The tick that was due comes at once when
// the dialog is closed.
class frmMain::TimerPause {
public:
    explicit TimerPause(frmMain& form) : form_(form) {
        ++form_.pauses_;
        form_.TimerRefresh.Stop();
        form_.WaitForAlarms();
    }
    ~TimerPause() {
        if (--form_.pauses_ > 0) return;
        form_.TimerAlarms.Stop();
        form_.TickSoon();
    }
    TimerPause(const TimerPause&) = delete;
    TimerPause& operator=(const TimerPause&) = delete;

private:
    frmMain& form_;
};

void frmMain::NameCommands() {
    const struct {
        int command;
        const char* procedure;
        void (frmMain::*handler)();
    } commands[] = {
        {IDM_EXIT, "Toolbar1_ButtonClick", &frmMain::cmdExit_Click},
        {IDM_ADD, "Toolbar1_ButtonClick", &frmMain::cmdAdd_Click},
        {IDM_EDIT, "EditEvent", &frmMain::cmdEdit_Click},
        {IDM_PUSH, "PushEvent", &frmMain::cmdPush_Click},
        {IDM_DELETE, "DeleteEvents", &frmMain::cmdDelete_Click},
        {IDM_TASKLIST, "Toolbar1_ButtonClick", &frmMain::cmdTaskList_Click},
        {IDM_MONTHVIEW, "Toolbar1_ButtonClick", &frmMain::cmdMonthView_Click},
        {IDM_EDITLAYERS, "Toolbar1_ButtonClick", &frmMain::cmdEditLayers_Click},
        {IDM_OPTIONS, "Toolbar1_ButtonClick", &frmMain::cmdOptions_Click},
        {IDM_REFRESH, "Toolbar1_ButtonClick", &frmMain::cmdRefresh_Click},
        {IDM_LOG, "ShowLog", &frmMain::cmdLog_Click},
        {IDM_HELPMENU, "Toolbar1_ButtonClick", &frmMain::cmdHelp_Click},
        {IDM_SHAREWITH, "mnuShareWith_Click", &frmMain::mnuShareWith_Click},
        {IDM_SETTINGS, "mnuSettings_Click", &frmMain::EditOptions},
        {IDM_BACKUP, "mnuBackup_Click", &frmMain::mnuBackup_Click},
        {IDM_VIEWBACKUPS, "mnuViewBackups_Click", &frmMain::mnuViewBackups_Click},
        {IDM_CHECKFORUPDATE, "mnuCheckForUpdate_Click", &frmMain::mnuCheckForUpdate_Click},
        {IDM_HELP, "mnuHelp_Click", &frmMain::mnuHelp_Click},
        {IDM_ABOUT, "mnuAbout_Click", &frmMain::mnuAbout_Click},
    };
    for (const auto& entry : commands)
        On(entry.command, Raised::Click, entry.procedure, entry.handler);
    On(IDC_ListEvents, Raised::DoubleClick, "ListEvents_DblClick", &frmMain::cmdEdit_Click);
}

void frmMain::cmdExit_Click() {
    if (MayEnd()) owner_.fMain_ShutDownKAZ();
}

void frmMain::cmdAdd_Click() {
    if (const auto code = commands_.Add()) Refill(code);
}

void frmMain::cmdEdit_Click() {
    const auto event = CommandEvent();
    if (!event) return;
    const auto code = [&] {
        const TimerPause pause(*this);
        return commands_.Edit(*event);
    }();
    if (code) Refill(code);
}

void frmMain::cmdPush_Click() {
    const auto event = CommandEvent();
    if (!event) return;
    if (const auto code = commands_.Push(*event)) Refill(code);
}

void frmMain::cmdDelete_Click() {
    const std::vector<EventRef> events = SelectedEvents();
    if (events.empty()) return;
    const int row = NeighbourOfSelection();
    const std::optional<EventList::Key> neighbour = row < 0 ? std::nullopt : std::optional(list_.KeyOf(row));
    if (!commands_.Delete(events, list_.CellText(SelectedRow(), kEventColumn))) return;
    Refill(std::nullopt);
    if (neighbour && !unloaded_) SelectOnly({*neighbour}, neighbour);
}

void frmMain::mnuShareWith_Click() {
    const auto event = CommandEvent();
    if (!event) return;
    const std::vector<EventRef> others = SelectedEvents();
    const auto code = [&] {
        const TimerPause pause(*this);
        return commands_.ShareWith(*event, others);
    }();
    if (code) Refill(code);
}

void frmMain::cmdMonthView_Click() {
    const CivilDate today = app_.platform.clock.Today().Civil();
    dialogs_.month(today.month, today.year);
}

void frmMain::cmdEditLayers_Click() {
    dialogs_.categories();
    if (unloaded_) return;
    app_.dataWatch->Tell();
    FillCategories();
    FillEvents(Category());
}

void frmMain::cmdOptions_Click() { window().ShowMenuUnder(IDC_Toolbar1, IDM_OPTIONS, IDR_MENU_SETTINGS); }

void frmMain::cmdHelp_Click() { window().ShowMenuUnder(IDC_Toolbar1, IDM_HELPMENU, IDR_MENU_HELP); }

void frmMain::EditOptions() {
    {
        const TimerPause pause(*this);
        dialogs_.options();
        if (!unloaded_) app_.ReopenDatabases();
    }
    if (!unloaded_) Refill(std::nullopt);
}

// Kept on purpose: this is the log's default name, not the one that the program writes, so there is something
// to see only where a log of that name exists.
void frmMain::cmdLog_Click() {
    const std::string fileName = JoinPath(app_.runtimePath, cSharedLogging::kDefaultName);
    if (FileExists(app_.platform.files, fileName))
        OpenForUser(app_.platform, fileName);
    else
        app_.platform.dialogs.Message("There is no log \"" + fileName + "\".\r\nThis session's log is \"" +
                                      app_.log.CurrentLogFilename() + "\".");
}

void frmMain::mnuBackup_Click() {
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
void frmMain::mnuViewBackups_Click() {
    const std::string ofData = JoinPath(app_.DataPath(), kBackupFolder);
    const bool isThere = FolderExists(app_.platform.files, ofData);
    OpenForUser(app_.platform, isThere ? ofData : JoinPath(app_.runtimePath, kBackupFolder));
}

void frmMain::mnuCheckForUpdate_Click() { ShowUpdatePage(app_.platform); }

void frmMain::mnuHelp_Click() { ShowHelp(app_.platform); }

}  // namespace kaz
