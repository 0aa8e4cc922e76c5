#pragma once

#include "core/Application.h"
#include "core/MainWindow.h"
#include "platform/Controls.h"
#include "platform/Form.h"
#include "resources/resource.h"
#include "ui/EventList.h"
#include "ui/WindowSizeSetting.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kaz {

// The main window: the list of all events, and the one timer that drives reminders and alarms.
class frmMain : public Form, public MainWindow {
public:
    // `owner` and the application outlive the form.
    frmMain(std::unique_ptr<kaz::Window> window, Application& application, MainWindowEvents& owner);

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
    void Form_QueryUnload();
    void Form_SessionEnd();
    void ListEvents_ColumnClick(int column);
    void ListEvents_MouseUp();
    void chkExpired_Click();
    void cmbCategories_Click();
    void mnuFind_Click();
    void mnuFindNext_Click();
    void mnuRefresh_Click();
    void TimerRefresh_Timer();

    void FillCategories();
    std::int16_t Category() const;
    ReportList& ListEvents() const { return window().Report(IDC_ListEvents); }
    int SelectedRow() const;
    void SelectOnly(int row);
    bool AskForTerm();
    void Search(int from);
    void TickSoon();
    void ReloadChangedFiles();
    void ShowNewDay();
    void ShowAlarms();

    Application& app_;
    MainWindowEvents& owner_;
    EventList list_;
    WindowSizeSetting size_;
    CheckBox chkExpired{window(), IDC_chkExpired};
    ListControl cmbCategories{window(), IDC_cmbCategories};
    TimerControl TimerRefresh{window(), IDT_TimerRefresh};
    std::string searchTerm_;
    bool loading_ = false;
    bool ticking_ = false;
    bool unloaded_ = false;
    int lastDay_ = 0;  // day of the month of the last day change; 0 before the first tick
};

}  // namespace kaz
