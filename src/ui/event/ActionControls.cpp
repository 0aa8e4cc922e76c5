#include "ui/event/ActionControls.h"

#include "base/Text.h"
#include "platform/Files.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

namespace kaz {

namespace {
constexpr const char* kSoundFilter = "Wave sounds (*.wav)|*.wav|All files (*.*)|*.*";
constexpr const char* kAnyFilter = "All files (*.*)|*.*";
}  // namespace

void ActionControls::Show(const clsEvent& event) {
    chkMakeNoise.Checked(event.PlayWav);
    lblWavFile.Text(event.WavFile);
    chkRunFile.Checked(event.ExecFile);
    lblExecFile.Text(event.Filename);
    chkEmailTo.Checked(!event.Email.empty());
    txtEmailAlert.Text(event.Email);
}

void ActionControls::Take(clsEvent& event) const {
    const std::string email = StorableText(txtEmailAlert, "The e-mail address");
    event.Email = chkEmailTo.Checked() ? email : std::string();

    event.PlayWav = chkMakeNoise.Checked();
    event.WavFile = StorableText(lblWavFile, "The name of the sound file");
    // One that is missing is taken: it may be on a drive that is not there at the moment.
    if (event.PlayWav && FolderExists(files_, event.WavFile))
        throw FieldFault(IDC_cmdPickWav,
                         "\"" + event.WavFile + "\" is a folder. Please choose a sound file.");

    event.ExecFile = chkRunFile.Checked();
    event.Filename.clear();
    if (!event.ExecFile) return;
    event.Filename = StorableText(lblExecFile, "The name of the file to run");
    // Such an event is not listed on its day, so without a file nothing at all would happen.
    if (Trim(event.Filename).empty()) throw FieldFault(IDC_cmdPickFile, "Please choose the file to run");
}

void ActionControls::FollowTick() {
    const bool ticked = chkRunFile.Checked();
    for (Control* control : {static_cast<Control*>(&cmdPickFile), &lblExecFile,
                             static_cast<Control*>(&chkFrequency), &txtFrequency, &lblMinutes})
        control->Enabled(ticked);
}

void ActionControls::FollowSoundTick(const std::string& defaultSound) {
    if (!chkMakeNoise.Checked())
        lblWavFile.Text("");
    else if (Trim(lblWavFile.Text()).empty())
        lblWavFile.Text(defaultSound);
}

void ActionControls::FollowEmailTick(const std::string& defaultEmail) {
    if (chkEmailTo.Checked() && txtEmailAlert.Text().empty()) txtEmailAlert.Text(defaultEmail);
}

void ActionControls::PickSound() {
    const auto chosen = dialogs_.OpenFile("Choose a sound", kSoundFilter);
    if (!chosen) return;
    lblWavFile.Text(*chosen);
    chkMakeNoise.Checked(true);
}

void ActionControls::PickFile() {
    if (const auto chosen = dialogs_.OpenFile("Choose the file to run", kAnyFilter))
        lblExecFile.Text(*chosen);
}

}  // namespace kaz
