#pragma once

#include "forms/Controls.h"
#include "model/clsEvent.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "resources/resource.h"

#include <string>

namespace kaz {

// The part of the event editor that says what happens with the event besides the message: its sound, the file
// that it runs, the e-mail that is sent.
class ActionControls {
public:
    ActionControls(Window& window, const FileSystem& files, Dialogs& dialogs)
        : window_(window),
          files_(files),
          dialogs_(dialogs) {}

    void Show(const clsEvent& event);
    // Copies the fields into the event; throws FieldFault.
    void Take(clsEvent& event) const;

    // Enables what depends on the tick of the file to run.
    void FollowTick();
    void FollowSoundTick(const std::string& defaultSound);
    void FollowEmailTick(const std::string& defaultEmail);
    void PickSound();
    void PickFile();

private:
    Window& window_;
    const FileSystem& files_;
    Dialogs& dialogs_;
    CheckBox chkMakeNoise{window_, IDC_chkMakeNoise};
    Label lblWavFile{window_, IDC_lblWavFile};
    CheckBox chkRunFile{window_, IDC_chkRunFile};
    Label lblExecFile{window_, IDC_lblExecFile};
    Button cmdPickFile{window_, IDC_cmdPickFile};
    CheckBox chkFrequency{window_, IDC_chkFrequency};
    TextBox txtFrequency{window_, IDC_txtFrequency};
    Label lblMinutes{window_, IDC_lblFrequencyMinutes};
    CheckBox chkEmailTo{window_, IDC_chkEmailTo};
    TextBox txtEmailAlert{window_, IDC_txtEmailAlert};
};

}  // namespace kaz
