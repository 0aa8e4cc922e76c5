#include "ui/restore/frmRestore.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "commands/RestoreEvents.h"
#include "core/DataWatch.h"
#include "core/NamedEvents.h"
#include "platform/BusyPointer.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "support/Names.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

using State = BackedUpEvent::State;

std::string StateText(State state) {
    switch (state) {
    case State::Missing: return "not here any more";
    case State::Different: return "different now";
    case State::Here: break;
    }
    return "here";
}

std::size_t CountOf(const std::vector<BackedUpEvent>& events, State state) {
    return static_cast<std::size_t>(
        std::ranges::count_if(events, [&](const BackedUpEvent& event) { return event.state == state; }));
}

}  // namespace

frmRestore::frmRestore(std::unique_ptr<kaz::Window> window, Application& application)
    : ModalForm(std::move(window), application.errors, "frmRestore"),
      app_(application) {
    On(0, Raised::Load, "Form_Load", &frmRestore::Form_Load);
    On(0, Raised::CloseBox, "cmdClose_Click", &frmRestore::cmdClose_Click);
    On(IDC_lstBackups, Raised::Select, "lstBackups_Select", &frmRestore::lstBackups_Select);
    On(IDC_lstBackupEvents, Raised::DoubleClick, "cmdRestore_Click", &frmRestore::cmdRestore_Click);
    On(IDC_cmdRestore, Raised::Click, "cmdRestore_Click", &frmRestore::cmdRestore_Click);
    On(IDC_cmdRestoreAll, Raised::Click, "cmdRestoreAll_Click", &frmRestore::cmdRestoreAll_Click);
    On(IDC_cmdCloseRestore, Raised::Click, "cmdClose_Click", &frmRestore::cmdClose_Click);
}

void frmRestore::Form_Load() {
    ReportList& backups = window().Report(IDC_lstBackups);
    ReportList& events = window().Report(IDC_lstBackupEvents);
    backups.SetColumns({{"Date", 90}, {"Events", 60}, {"Expired", 60}, {"Backup", 200, true}});
    backups.SetRows(&backupRows_);
    events.SetColumns({{"Now", 120}, {"Date", 90}, {"Event", 180, true}, {"Category", 90}, {"List", 60}});
    events.SetRows(&eventRows_);
    const BusyPointer busy(app_.platform.pump);
    backups_ = FindBackups(app_);
    const std::string folder = JoinPath(app_.runtimePath, kBackupFolder);
    for (const BackupSource& backup : backups_) {
        std::string name = FileNameOf(backup.path);
        if (const std::string in = FolderOf(backup.path); in != folder) name += " in " + in;
        const std::string date = FormatDate(backup.made, app_.DatePattern(), app_.platform.locale.Data());
        if (backup.isReadable)
            backupRows_.rows.push_back(
                {{date, std::to_string(backup.events), std::to_string(backup.expired), name}, false});
        else
            backupRows_.rows.push_back({{date, "-", "-", name + " (cannot be read)"}, true});
    }
    backups.Refresh();
    window().SetFocus(IDC_lstBackups);
    if (backups_.empty()) {
        lblBackup.Text("There is no backup yet.");
        for (Button* button : {&cmdRestore, &cmdRestoreAll})
            button->Enabled(false);
        return;
    }
    backups.Select(0);
    ShowBackup(0);
}

void frmRestore::lstBackups_Select() {
    const std::vector<int> selected = window().Report(IDC_lstBackups).Selection();
    if (!selected.empty() && selected.front() != shown_)
        ShowBackup(static_cast<std::size_t>(selected.front()));
}

void frmRestore::ShowBackup(std::size_t which) {
    const BusyPointer busy(app_.platform.pump);
    shown_ = static_cast<int>(which);
    const BackupSource& backup = backups_[which];
    events_ = backup.isReadable ? EventsOfBackup(app_, backup.path) : std::vector<BackedUpEvent>{};
    eventRows_.rows.clear();
    for (const BackedUpEvent& event : events_)
        eventRows_.rows.push_back(
            {{StateText(event.state),
              FormatDate(event.event.DueDate(), app_.DatePattern(), app_.platform.locale.Data()),
              OneLine(event.event.DescShown()), app_.layers.Layer(event.event.Layer()),
              event.expired ? "Expired" : ""},
             event.state != State::Here});
    ReportList& list = window().Report(IDC_lstBackupEvents);
    list.ClearSelection();
    list.Refresh();
    if (backup.isReadable)
        lblBackup.Text(Counted(events_.size(), "event") + ": " +
                       std::to_string(CountOf(events_, State::Missing)) + " not here any more, " +
                       std::to_string(CountOf(events_, State::Different)) + " different now.");
    else
        lblBackup.Text("This backup is damaged, or holds no events.");
    for (Button* button : {&cmdRestore, &cmdRestoreAll})
        button->Enabled(!events_.empty());
}

void frmRestore::cmdRestore_Click() {
    std::vector<BackedUpEvent> chosen;
    for (const int row : window().Report(IDC_lstBackupEvents).Selection())
        chosen.push_back(events_[static_cast<std::size_t>(row)]);
    if (chosen.empty())
        app_.platform.dialogs.Message("Please select events first.");
    else
        Restore(chosen);
}

void frmRestore::Restore(const std::vector<BackedUpEvent>& events) {
    Dialogs& dialogs = app_.platform.dialogs;
    const std::size_t missing = CountOf(events, State::Missing);
    const std::size_t different = CountOf(events, State::Different);
    if (missing + different == 0) {
        dialogs.Message("Nothing is missing: these events are here as they are in the backup.");
        return;
    }
    const bool replace = different > 0 && AskToReplace(events);
    if (missing == 0 && !replace) return;
    const RestoreResult result = RestoreEvents(app_, events, replace);
    app_.dataWatch->Tell();
    if (!result.kept) {
        dialogs.Message("Your present events could not be kept beside the backups, so nothing was restored.");
        return;
    }
    ShowBackup(static_cast<std::size_t>(shown_));
    dialogs.Message(Counted(result.restored, "event") + (result.restored == 1 ? " is" : " are") +
                    " back. Undo (Ctrl+Z) in the main window takes this back." +
                    (result.told.empty() ? "" : "\r\n" + result.told));
}

bool frmRestore::AskToReplace(const std::vector<BackedUpEvent>& events) const {
    std::vector<clsEvent> different;
    for (const BackedUpEvent& event : events)
        if (event.state == State::Different) different.push_back(event.event);
    return app_.platform.dialogs.AskYesNo(
        NameOf(different) + (different.size() == 1 ? " is" : " are") +
            " different now. Do you want to replace what is here by the backup?\r\nWith No, only what is "
            "missing is put back.",
        Dialogs::Default::No);
}

}  // namespace kaz
