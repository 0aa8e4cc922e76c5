#include "ui/options/frmOptions.h"

#include "core/Links.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessagePump.h"
#include "platform/SystemInfo.h"
#include "storage/Owner.h"
#include "support/Names.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"
#include "ui/options/OptionsSaving.h"
#include "ui/words/WordsKey.h"

#include <algorithm>
#include <utility>

namespace kaz {

frmOptions::frmOptions(std::unique_ptr<Window> window, Application& application)
    : ModalForm(std::move(window), application.errors, "frmOptions"),
      app_(application),
      users_(this->window(), application) {
    On(0, Raised::Load, "Form_Load", &frmOptions::Form_Load);
    On(0, Raised::CloseBox, "cmdAbort_Click", &frmOptions::cmdAbort_Click);
    On(IDC_optNetworked, Raised::Click, "optNetworked_Click", &frmOptions::optNetworked_Click);
    On(IDC_optSingle, Raised::Click, "optSingle_Click", &frmOptions::optSingle_Click);
    On(IDC_cmdDatapath, Raised::Click, "cmdDatapath_Click", &frmOptions::cmdDatapath_Click);
    On(IDC_cmdSecondBackup, Raised::Click, "cmdSecondBackup_Click", &frmOptions::cmdSecondBackup_Click);
    On(IDC_cmdSharedDBPath, Raised::Click, "cmdSharedDBPath_Click", &frmOptions::cmdSharedDBPath_Click);
    On(IDC_cmdPickAlarmWav, Raised::Click, "cmdPickWav_Click", &frmOptions::cmdPickWav_Click);
    On(IDC_cmdAddUser, Raised::Click, "cmdAddUser_Click", &frmOptions::cmdAddUser_Click);
    On(IDC_cmdDel, Raised::Click, "cmdDel_Click", &frmOptions::cmdDel_Click);
    On(IDC_cmdReload, Raised::Click, "cmdReload_Click", &frmOptions::cmdReload_Click);
    On(IDC_cmdHomePage, Raised::Click, "cmdHomePage_Click", &frmOptions::cmdHomePage_Click);
    On(IDC_cmdSaveOptions, Raised::Click, "cmdSave_Click", &frmOptions::cmdSave_Click);
    On(IDC_cmdAbortOptions, Raised::Click, "cmdAbort_Click", &frmOptions::cmdAbort_Click);
}

void frmOptions::Form_Load() {
    const Options options = Options::Of(app_);
    txtSharedDBPath.Text(options.sharedPath);
    txtOwner.Text(options.owner);
    optEuroDate.Checked(options.europeanDates);
    optUSDate.Checked(!options.europeanDates);
    optNetworked.Checked(options.networked);
    optSingle.Checked(!options.networked);
    EnableNetwork();
    txtDatapath.Text(options.dataPath);
    txtAlarmWav.Text(options.alarmWav);
    chkNoSound.Checked(options.noSounds);
    chkStartAtLogon.Enabled(options.startsAtLogon.has_value());
    chkStartAtLogon.Checked(options.startsAtLogon.value_or(false));
    chkSilentStart.Checked(options.silentStart);
    chkNoAutoBackups.Checked(options.noAutoBackups);
    chkDisableAutoUpdate.Checked(options.disableAutoUpdate);
    txtSecondBackup.Text(options.secondBackup);
    chkQuietScreen.Checked(options.quietScreen);
    txtQuietFrom.Text(options.quietFrom);
    txtQuietTo.Text(options.quietTo);
    ShowWordsKeys(options.wordsKey);
    // Kept on purpose: it has never had an effect, and looks like it.
    chkPruneBackups.Enabled(false);
    if (!options.networked) return;
    try {
        users_.Reload();
    } catch (const FieldFault& fault) {
        // A share without its network must not get in the way of the other options.
        app_.log.LogEvent(fault.Description());
    }
}

// One that the list does not have stays what it is.
void frmOptions::ShowWordsKeys(const std::string& chosen) {
    keys_ = WordsKey::Choices();
    keys_.insert(keys_.begin(), "(none)");
    auto at = chosen.empty() ? keys_.begin() : std::find(keys_.begin(), keys_.end(), chosen);
    if (at == keys_.end()) at = keys_.insert(at, chosen);
    cmbWordsKey.Items(keys_);
    cmbWordsKey.Select(static_cast<int>(at - keys_.begin()));
}

void frmOptions::EnableNetwork() {
    const bool networked = optNetworked.Checked();
    txtSharedDBPath.Enabled(networked);
    cmdSharedDBPath.Enabled(networked);
    txtOwner.Enabled(networked);
    users_.Enable(networked);
}

// A fault that the user has to put right is told, and the keyboard goes to the field.
template <class Step>
bool frmOptions::Told(Step step) {
    try {
        step();
        return true;
    } catch (const FieldFault& fault) {
        if (!fault.Description().empty()) app_.platform.dialogs.Message(fault.Description());
        window().SetFocus(fault.Control());
        return false;
    }
}

// An ID that cannot be typed needs no question whether there is one. What was
// typed comes back with the network.
void frmOptions::optSingle_Click() {
    const bool couldType = txtOwner.Enabled();
    EnableNetwork();
    if (couldType) typedOwner_ = txtOwner.Text();
    txtOwner.Text(std::string(kSingleUser));
}

void frmOptions::optNetworked_Click() {
    if (typedOwner_) txtOwner.Text(*std::exchange(typedOwner_, std::nullopt));
    EnableNetwork();
}

void frmOptions::PickFolder(const std::string& title, TextBox& box) {
    if (const auto folder = app_.platform.dialogs.PickFolder(title)) box.Text(*folder);
}

void frmOptions::cmdDatapath_Click() {
    PickFolder("Select the storage path for your data files", txtDatapath);
}

void frmOptions::cmdSharedDBPath_Click() {
    PickFolder("Select the folder that all users share", txtSharedDBPath);
}

// To who carries the data folder around, the computer offers a place of its own.
void frmOptions::cmdSecondBackup_Click() {
    const std::string local = app_.platform.system.LocalFolder();
    const bool portable = app_.DataPath() == app_.runtimePath && !local.empty();
    if (portable && TypedText(txtSecondBackup).empty()) {
        const std::string folder = JoinPath(JoinPath(local, kApplicationName), kBackupFolder);
        if (app_.platform.dialogs.AskYesNo("Shall the copies stay on this computer, in the folder\r\n" +
                                           folder + "?")) {
            txtSecondBackup.Text(folder);
            return;
        }
    }
    PickFolder("Select the folder for a copy of the newest backup", txtSecondBackup);
}

void frmOptions::cmdPickWav_Click() {
    const auto file =
        app_.platform.dialogs.OpenFile("Select the WAV file for alarms", "WAV files (*.wav)|*.wav");
    if (file) txtAlarmWav.Text(*file);
}

void frmOptions::cmdAddUser_Click() {
    Told([&] { users_.Add(); });
}

void frmOptions::cmdDel_Click() {
    Told([&] { users_.Delete(); });
}

void frmOptions::cmdReload_Click() {
    Told([&] { users_.Reload(); });
}

void frmOptions::cmdHomePage_Click() { ShowHomePage(app_.platform); }

Options frmOptions::Typed() const {
    Options options;
    options.dataPath = FittingText(txtDatapath);
    options.alarmWav = FittingText(txtAlarmWav);
    options.noSounds = chkNoSound.Checked();
    options.networked = optNetworked.Checked();
    options.sharedPath = FittingText(txtSharedDBPath);
    options.owner = FittingText(txtOwner);
    options.europeanDates = optEuroDate.Checked();
    if (chkStartAtLogon.Enabled()) options.startsAtLogon = chkStartAtLogon.Checked();
    options.silentStart = chkSilentStart.Checked();
    options.disableAutoUpdate = chkDisableAutoUpdate.Checked();
    options.noAutoBackups = chkNoAutoBackups.Checked();
    options.secondBackup = FittingText(txtSecondBackup);
    options.quietScreen = chkQuietScreen.Checked();
    options.quietFrom = TypedText(txtQuietFrom);
    options.quietTo = TypedText(txtQuietTo);
    if (const int at = cmbWordsKey.Selected(); at > 0)
        options.wordsKey = keys_.at(static_cast<std::size_t>(at));
    return options;
}

void frmOptions::cmdSave_Click() {
    Options options;
    OptionsSaving saving(app_);
    if (!Told([&] { options = Typed(); })) return;
    const bool fine = Told([&] { saving.Check(options); });
    txtSharedDBPath.Text(options.sharedPath);
    chkNoSound.Checked(options.noSounds);
    if (!fine) return;
    saving.Store(options);
    Accept();
    app_.platform.pump.ProcessPending();
}

}  // namespace kaz
