#include "ui/forecast/frmForecast.h"

#include "base/DateText.h"
#include "forms/WindowFactory.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"
#include "ui/print/PrintDocument.h"

#include <algorithm>

namespace kaz {

frmForecast::frmForecast(std::unique_ptr<kaz::Window> window, Application& application)
    : Form(std::move(window), application.errors, kName),
      app_(application),
      first_(application.platform.clock.Today()) {
    On(0, Raised::Load, "Form_Load", &frmForecast::Form_Load);
    // What was changed in another window shows when the user comes back to this one.
    On(0, Raised::Activated, "Form_Activate", [this] { Fill(); });
    On(0, Raised::CloseBox, "cmdClose_Click", &frmForecast::cmdClose_Click);
    On(IDM_REFRESH, Raised::Click, "mnuRefresh_Click", [this] { Fill(); });
    On(IDC_cmdForecastDay, Raised::Click, "cmdPickDay_Click", &frmForecast::cmdPickDay_Click);
    On(IDC_cmdForecastToday, Raised::Click, "cmdToday_Click", &frmForecast::cmdToday_Click);
    On(IDC_cmdForecastPrint, Raised::Click, "cmdPrint_Click", &frmForecast::cmdPrint_Click);
    On(IDC_cmdForecastClose, Raised::Click, "cmdClose_Click", &frmForecast::cmdClose_Click);
}

void frmForecast::Form_Load() {
    window()
        .Report(IDC_lstForecast)
        .SetColumns({{"Day", 150}, {"Reminder", 90}, {"Time", 50}, {"Event", 200, true}});
    window().Report(IDC_lstForecast).SetRows(&forecast_);
    Fill();
    window().SetFocus(IDC_lstForecast);
}

void frmForecast::Fill() {
    first_ = std::max(first_, app_.platform.clock.Today());
    forecast_.Look(app_, first_);
    lblFrom.Text("What KAZ will tell you in the " + std::to_string(Forecast::kDays) + " days from " +
                 FormatDate(first_, "DDDD, " + app_.DatePattern(), app_.platform.locale.Data()) + " on:");
    window().Report(IDC_lstForecast).Refresh();
}

void frmForecast::cmdPickDay_Click() {
    const auto day = app_.platform.dialogs.PickDate("What will I be told from this day on?", first_);
    if (!day) return;
    if (*day < app_.platform.clock.Today())
        app_.platform.dialogs.Message("That day has passed. KAZ tells what is still to come.");
    first_ = day->DateOnly();
    Fill();
}

void frmForecast::cmdToday_Click() {
    first_ = app_.platform.clock.Today();
    Fill();
}

void frmForecast::cmdPrint_Click() {
    const PaperList list = forecast_.OnPaper(PrintedToday(app_));
    PrintDocument(app_, {.document = "Forecast"},
                  [&](const Paper& paper) { return LayOutList(list, paper); });
}

void frmForecast::cmdClose_Click() { app_.openWindows.Unload(*this); }

void ShowForecast(Application& application) {
    auto form = std::dynamic_pointer_cast<frmForecast>(application.openWindows.Find(frmForecast::kName));
    if (!form) {
        form = std::make_shared<frmForecast>(application.platform.windows.Create(IDD_FORECAST), application);
        application.openWindows.Add(form);
        form->OnRaised(0, Raised::Load, 0);
    }
    form->ShowWindow();
}

}  // namespace kaz
