#pragma once

#include "core/Application.h"
#include "core/MainWindow.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"
#include "ui/list/EventListView.h"
#include "ui/list/ListColumns.h"
#include "ui/main/DataMenu.h"
#include "ui/main/EventMenu.h"
#include "ui/main/HealthBar.h"
#include "ui/main/MainDialogs.h"
#include "ui/main/ReminderClock.h"
#include "ui/main/ReminderMenu.h"
#include "ui/main/TrayPresence.h"
#include "ui/main/WindowSizeSetting.h"
#include "ui/words/WordsKey.h"
#include "ui/words/WordsLine.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace kaz {

// The main window: the list of all events with its commands.
class frmMain : public Form, public MainWindow {
public:
    // `owner` and the application outlive the form.
    frmMain(std::unique_ptr<kaz::Window> window, Application& application, MainWindowEvents& owner,
            MainDialogs dialogs);

    void FillEvents(std::int16_t category) override;
    // Colours follow from the Type column; repaints the list with them.
    void SetColours() { list_.SetColours(); }
    void EditOptions() override;
    LineAnswer AddInWords(const std::string& line) override;
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
    void ListEvents_ColumnClick(int column) { list_.SortBy(column); }
    void ListEvents_MouseUp();
    void chkExpired_Click();
    void cmbCategories_Click();
    void mnuFind_Click();
    void mnuFindNext_Click();

    void NameCommands();
    void ListenToWords();
    void OpenWords();
    // Empties the box that has the keyboard, then leaves it.
    void EscapeFromBox();
    void txtSearch_Change();
    void TellWhyEmpty();
    void cmdExit_Click();
    void cmdMonthView_Click();
    void cmdEditLayers_Click();
    void cmdReminders_Click();
    void cmdOptions_Click();
    void cmdHelp_Click();
    void mnuRestore_Click();

    void mnuExit_Click();
    void Form_MouseMove(int mouseMessage) { tray_.OnMouse(mouseMessage); }
    // Whether one of the program's dialogs waits for its answer.
    bool IsBlocked() const { return !window().Enabled(0); }

    // Before the program ends as the user wants it. False when something is not saved and the user would
    // rather go on.
    bool MayEnd();

    // After anything of what the user has to know has changed.
    void ShowHealth();
    // What the user has arranged in the window, for the next run.
    void SaveArrangement();
    void FillCategories();
    std::int16_t Category() const;
    // After events have changed: fills the list, selects the row of that event, if there is one, and has the
    // host's lists made anew. Behind an open dialog the list stays as it is until the next tick. False when
    // the window has been unloaded.
    bool Refill(const std::optional<std::string>& code);
    bool IsHeldUp();
    // Fills the list after what happened by itself: what is selected stays selected, wherever it stands now.
    void RefillKeepingSelection();
    bool AskForTerm();
    void Search(int from);

    Application& app_;
    MainWindowEvents& owner_;
    MainDialogs dialogs_;
    EventListView list_;
    ListColumns columns_;
    WindowSizeSetting size_;
    HealthBar bar_;
    CheckBox chkExpired{window(), IDC_chkExpired};
    ListControl cmbCategories{window(), IDC_cmbCategories};
    TextBox txtSearch{window(), IDC_txtSearch};
    TrayPresence tray_;
    ReminderClock clock_;
    EventMenu events_;
    ReminderMenu reminders_;
    DataMenu data_;
    WordsLine words_;
    WordsKey wordsKey_;
    std::string searchTerm_;
    bool loading_ = false;
    bool unloaded_ = false;
};

}  // namespace kaz
