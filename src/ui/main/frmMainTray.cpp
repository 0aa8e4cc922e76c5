#include "base/ErrorTrap.h"
#include "core/DataWatch.h"
#include "ui/main/TrayTip.h"
#include "ui/main/frmMain.h"

#include <cstdio>
#include <utility>

namespace kaz {

namespace {

// The codes of the system's mouse messages.
enum MouseMessage {
    kMove = 0x200,
    kLeftDown = 0x201,
    kLeftUp = 0x202,
    kLeftDouble = 0x203,
    kRightDown = 0x204,
    kRightUp = 0x205,
    kRightDouble = 0x206,
};

std::string Hexadecimal(int code) {
    char text[16];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(code));
    return text;
}

}  // namespace

void frmMain::NameTrayEvents() {
    On(0, Raised::TrayMouse, "Form_MouseMove", &frmMain::Form_MouseMove);
    On(0, Raised::TrayLost, "ShowIconInTray", &frmMain::ShowIconInTray);
    On(IDM_SHOW, Raised::Click, "mnuShow_Click", &frmMain::mnuShow_Click);
    On(IDM_QUIT, Raised::Click, "mnuExit_Click", &frmMain::mnuExit_Click);
}

void frmMain::ShowProgramInTray() {
    ErrorTrap trap(app_.log, "ShowProgramInTray", Name());
    trap([&] {
        trayWarns_ = TrayWarns(app_);
        window().ShowTrayIcon(trayTip_ = TrayTip(app_), trayWarns_);
    });
}

void frmMain::RenewTrayTip() {
    std::string tip = TrayTip(app_);
    const bool warns = TrayWarns(app_);
    if (trayTip_.empty() || (tip == trayTip_ && warns == trayWarns_)) return;
    trayTip_ = std::move(tip);
    trayWarns_ = warns;
    ShowIconInTray();
}

void frmMain::ShowIconInTray() {
    ErrorTrap trap(app_.log, "ShowIconInTray", Name());
    trap([&] { window().ShowTrayIcon(trayTip_, trayWarns_); });
}

void frmMain::Form_MouseMove(int mouseMessage) {
    switch (mouseMessage) {
    case kLeftDown: BringForward(); break;
    case kRightDown: window().ShowMenu(IDR_MENU_TRAY); break;
    case kMove:
    case kLeftUp:
    case kLeftDouble:
    case kRightUp:
    case kRightDouble: break;
    default: app_.log.LogEvent("&H" + Hexadecimal(mouseMessage) + " in 'mousemove' untrapped");
    }
}

void frmMain::mnuShow_Click() { ShowWindow(); }

// Kept on purpose: this ends the program by itself, while the toolbar's button only asks the host to do so.
void frmMain::mnuExit_Click() {
    // What the user is just typing in a dialog would be lost.
    if (IsBlocked())
        BringForward();
    else if (MayEnd())
        app_.EndProgram();
}

bool frmMain::MayEnd() {
    DataWatch& watch = *app_.dataWatch;
    if (watch.IsAllSaved()) return true;
    watch.TryAgain();
    while (!unloaded_ && !watch.IsAllSaved()) {
        switch (dialogs_.unsaved(watch.Sentence())) {
        case UnsavedAnswer::TryAgain: watch.TryAgain(); break;
        case UnsavedAnswer::SaveCopy:
            if (!watch.SaveCopy()) break;
            // The copy is the user's to keep; the next start takes over what it holds all the same.
            return true;
        case UnsavedAnswer::Lose: watch.GiveUp(); return true;
        case UnsavedAnswer::Cancel: return false;
        }
    }
    return !unloaded_;
}

}  // namespace kaz
