#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "resources/resource.h"
#include "ui/options/Options.h"
#include "ui/options/UserListControls.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kaz {

// The program's options. Nothing is stored until the user saves, but for the
// list of users, which is everybody's.
class frmOptions : public ModalForm {
public:
    frmOptions(std::unique_ptr<Window> window, Application& application);

private:
    void Form_Load();
    void optNetworked_Click();
    void optSingle_Click();
    void cmdDatapath_Click();
    void cmdSharedDBPath_Click();
    void cmdPickWav_Click();
    void cmdSecondBackup_Click();
    void cmdAddUser_Click();
    void cmdDel_Click();
    void cmdReload_Click();
    void cmdHomePage_Click();
    void cmdSave_Click();
    void cmdAbort_Click() { Leave(); }

    Options Typed() const;
    void EnableNetwork();
    void ShowWordsKeys(const std::string& chosen);
    void PickFolder(const std::string& title, TextBox& box);
    template <class Step>
    bool Told(Step step);

    Application& app_;
    UserListControls users_;
    std::optional<std::string> typedOwner_;
    std::vector<std::string> keys_;  // of the list, the first one for none
    TextBox txtDatapath{window(), IDC_txtDatapath};
    TextBox txtAlarmWav{window(), IDC_txtAlarmWav};
    CheckBox chkNoSound{window(), IDC_chkNoSound};
    CheckBox optUSDate{window(), IDC_optUSDate};
    CheckBox optEuroDate{window(), IDC_optEuroDate};
    CheckBox chkStartAtLogon{window(), IDC_chkStartAtLogon};
    CheckBox chkSilentStart{window(), IDC_chkSilentStart};
    CheckBox chkDisableAutoUpdate{window(), IDC_chkDisableAutoUpdate};
    CheckBox chkNoAutoBackups{window(), IDC_chkNoAutoBackups};
    CheckBox chkPruneBackups{window(), IDC_chkPruneBackups};
    TextBox txtSecondBackup{window(), IDC_txtSecondBackup};
    CheckBox chkQuietScreen{window(), IDC_chkQuietScreen};
    TextBox txtQuietFrom{window(), IDC_txtQuietFrom};
    TextBox txtQuietTo{window(), IDC_txtQuietTo};
    ListControl cmbWordsKey{window(), IDC_cmbWordsKey};
    CheckBox optSingle{window(), IDC_optSingle};
    CheckBox optNetworked{window(), IDC_optNetworked};
    TextBox txtSharedDBPath{window(), IDC_txtSharedDBPath};
    Button cmdSharedDBPath{window(), IDC_cmdSharedDBPath};
    TextBox txtOwner{window(), IDC_txtOwner};
};

}  // namespace kaz
