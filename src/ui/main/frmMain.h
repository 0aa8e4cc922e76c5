#pragma once

#include "commands/EventCommands.h"
#include "core/Application.h"
#include "core/MainWindow.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"
#include "ui/list/EventList.h"
#include "ui/main/HealthBar.h"
#include "ui/main/MainDialogs.h"
#include "ui/main/WindowSizeSetting.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kaz {

// The main window: the list of all events with its commands, the tray icon, and the timers that drive
// reminders and alarms.
class frmMain : public Form, public MainWindow {
public:
    // `owner` and the application outlive the form.
    frmMain(std::unique_ptr<kaz::Window> window, Application& application, MainWindowEvents& owner,
            MainDialogs dialogs);

    void FillEvents(std::int16_t category) override;
    // Colours follow from the Type column; repaints the list with them.
    void SetColours();
    void EditOptions() override;
    bool IsShown() const override { return window().IsVisible(); }
    void ShowWindow() override;
    void BringForward() override;
    void HideWindow() override;
    void Unload() override;
    void Form_Unload() override;

private:
    void Form_Load();
    void Form_QueryUnload(int how);
    void Form_SessionEnd();
    void ListEvents_ColumnClick(int column);
    void ListEvents_MouseUp();
    void chkExpired_Click();
    void cmbCategories_Click();
    void mnuFind_Click();
    void mnuFindNext_Click();
    void mnuSelectAll_Click();

    // The toolbar and the menus: frmMainCommands.cpp.
    void NameCommands();
    void cmdExit_Click();
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdPush_Click();
    void cmdDelete_Click();
    void cmdTaskList_Click() { dialogs_.tasks(); }
    void cmdMonthView_Click();
    void cmdEditLayers_Click();
    void cmdOptions_Click();
    void cmdRefresh_Click() { FillEvents(Category()); }
    void cmdLog_Click();
    void cmdHelp_Click();
    void mnuShareWith_Click();
    void mnuBackup_Click();
    void mnuViewBackups_Click();
    void mnuCheckForUpdate_Click();
    void mnuHelp_Click();
    void mnuAbout_Click() { dialogs_.about(); }

    // The tray: frmMainTray.cpp.
    void NameTrayEvents();
    void ShowProgramInTray();
    // Shows the icon again, after the shell has lost it or with another tip.
    void ShowIconInTray();
    void RenewTrayTip();
    void Form_MouseMove(int mouseMessage);
    void mnuShow_Click();
    void mnuExit_Click();
    // Whether one of the program's dialogs waits for its answer.
    bool IsBlocked() const { return !window().Enabled(0); }

    // Before the program ends as the user wants it. False when something is not saved and the user would
    // rather go on.
    bool MayEnd();

    // The timers: frmMainTick.cpp.
    void TickSoon();
    void ClockMoved();
    void TimerRefresh_Timer();
    void TimerAlarms_Timer();
    void DoSteps(std::initializer_list<void (frmMain::*)()> steps);
    bool IsNewDay() const;
    void ReloadChangedFiles();
    void ShowNewDay();
    void SaveAgain();
    void ShowAlarms();
    void RingAlarms();
    void WaitForAlarms();

    // After anything of what the user has to know has changed.
    void ShowHealth();
    void FillCategories();
    std::int16_t Category() const;
    ReportList& ListEvents() const { return window().Report(IDC_ListEvents); }
    int SelectedRow() const;
    // The row that a command for one event is about, -1 when there is none.
    int CommandRow() const;
    std::optional<EventRef> CommandEvent() const;
    std::vector<EventRef> SelectedEvents() const;
    // After events have changed: fills the list, selects the row of that event, if there is one, and has the
    // host's lists made anew. Behind an open dialog the list stays as it is until the next tick.
    void Refill(const std::optional<std::string>& code);
    bool IsHeldUp();
    // The same for what happened by itself: what is selected stays selected, wherever it stands now.
    void RefillKeepingSelection();
    // The first row behind the selected ones that is not selected itself, else the last before them; -1 when
    // all are selected.
    int NeighbourOfSelection() const;
    void SelectOnly(const std::vector<EventList::Key>& events, const std::optional<EventList::Key>& current);
    bool AskForTerm();
    void Search(int from);

    Application& app_;
    MainWindowEvents& owner_;
    MainDialogs dialogs_;
    EventList list_;
    EventCommands commands_;
    WindowSizeSetting size_;
    HealthBar bar_;
    CheckBox chkExpired{window(), IDC_chkExpired};
    ListControl cmbCategories{window(), IDC_cmbCategories};
    TimerControl TimerRefresh{window(), IDT_TimerRefresh};
    TimerControl TimerAlarms{window(), IDT_TimerAlarms};  // for what cannot wait for the other one
    std::string searchTerm_;
    std::string trayTip_;
    bool trayWarns_ = false;
    bool loading_ = false;
    bool ticking_ = false;
    int pauses_ = 0;  // dialogs during which the refresh timer stands still
    bool unloaded_ = false;
    std::optional<DateValue> lastAlarms_;  // when alarms were last looked for
    int lastDay_ = 0;  // day of the month of the last day change; 0 when the next tick is to be a new day's
    bool expiryWaits_ = false;  // events of the day before could not be moved to the expired ones

    class TimerPause;
};

}  // namespace kaz
