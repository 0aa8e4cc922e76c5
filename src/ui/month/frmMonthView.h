#pragma once

#include "commands/EventCommands.h"
#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"
#include "ui/month/MonthBoxes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kaz {

// Brings a month onto paper.
struct MonthPrinting {
    std::function<void(const MonthGrid&)> list;
    std::function<void(const MonthGrid&)> calendar;
};

// The month calendar: the events of each day, month by month, for one category or all.
class frmMonthView : public Form {
public:
    static constexpr const char* kName = "frmMonthView";

    // The application outlives the form.
    frmMonthView(std::unique_ptr<kaz::Window> window, Application& application, EventCommands::Editor editor,
                 MonthPrinting printing);

    // Shows the month with the events as they are now. `month` is 1 to 12; a year
    // outside 100 to 9999 changes nothing.
    void LoadMonth(std::int16_t month, std::int16_t year);
    // Shows the window or brings it forward.
    void ShowWindow() { window().Show(Activation::TakeFocus); }
    void Form_Unload() override;

private:
    void Form_Load();
    void Form_Activate();
    void Form_MouseWheel(int clicks);
    void cmd_prevyear_Click() { LoadMonth(month_, static_cast<std::int16_t>(year_ - 1)); }
    void cmd_prevmonth_Click() { StepMonths(-1); }
    void cmd_nextmonth_Click() { StepMonths(1); }
    void cmd_nextyear_Click() { LoadMonth(month_, static_cast<std::int16_t>(year_ + 1)); }
    void cmdNow_Click();
    void cmbLayers_Click();
    void cmdViewEvents_Click();
    void cmd_print_Click() { printing_.list(boxes_.Grid()); }
    void cmdPrintCal_Click() { printing_.calendar(boxes_.Grid()); }
    void cmd_exit_Click() { app_.openWindows.Unload(*this); }
    void Calbox_DblClick(int box);
    void OpenDay(int box);
    void Calbox_LeadsOut(int days);
    void TimerToday_Timer();
    void mnuRefresh_Click() { LoadMonth(month_, year_); }

    void FillCategories();
    void StepMonths(int months);
    void ShowMonth();
    std::int16_t Category() const;
    DayGrid& Calbox() const { return window().Grid(IDC_Calbox); }
    void SelectDay(int day);
    // Each is true when events are others now.
    bool Add(int day);
    using DayCommand = std::function<std::optional<std::string>(const EventRef&, DateValue day)>;
    bool Do(const DayCommand& command, int day, std::size_t position);
    bool Edit(int day, std::size_t position);
    bool Show(const std::optional<std::string>& changed);

    Application& app_;
    EventCommands commands_;
    MonthPrinting printing_;
    MonthBoxes boxes_;
    std::int16_t month_;
    std::int16_t year_;
    bool loading_ = false;
    Label lblDate{window(), IDC_lblDate};
    ListControl cmbLayers{window(), IDC_cmbMonthLayers};
    TimerControl TimerToday{window(), IDT_TimerToday};
};

}  // namespace kaz
