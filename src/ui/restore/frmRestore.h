#pragma once

#include "core/Application.h"
#include "core/BackupContents.h"
#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "forms/TextRows.h"
#include "resources/resource.h"

#include <memory>
#include <string>
#include <vector>

namespace kaz {

// The backups, and what is in the selected one: first the events that are not here any more. Some of them, or
// all, can be put back.
class frmRestore : public ModalForm {
public:
    // The application outlives the form.
    frmRestore(std::unique_ptr<kaz::Window> window, Application& application);

private:
    void Form_Load();
    void lstBackups_Select();
    void cmdRestore_Click();
    void cmdRestoreAll_Click() { Restore(events_); }
    void cmdClose_Click() { Leave(); }

    void ShowBackup(std::size_t which);
    void Restore(const std::vector<BackedUpEvent>& events);
    bool AskToReplace(const std::vector<BackedUpEvent>& events) const;

    Application& app_;
    std::vector<BackupSource> backups_;
    std::vector<BackedUpEvent> events_;  // of the backup that is shown
    int shown_ = -1;
    TextRows backupRows_;
    TextRows eventRows_;
    Label lblBackup{window(), IDC_lblBackup};
    Button cmdRestore{window(), IDC_cmdRestore};
    Button cmdRestoreAll{window(), IDC_cmdRestoreAll};
};

}  // namespace kaz
