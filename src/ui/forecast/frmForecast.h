#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"
#include "ui/forecast/Forecast.h"

#include <memory>

namespace kaz {

// "What will I be told?": the reminders of fourteen days from a day on that the user picks.
class frmForecast : public Form {
public:
    static constexpr const char* kName = "frmForecast";

    // The application outlives the form.
    frmForecast(std::unique_ptr<kaz::Window> window, Application& application);

    void ShowWindow() { window().Show(Activation::TakeFocus); }
    void Form_Unload() override { window().Hide(); }

private:
    void Form_Load();
    void cmdPickDay_Click();
    void cmdToday_Click();
    void cmdPrint_Click();
    void cmdClose_Click();

    void Fill();

    Application& app_;
    Forecast forecast_;
    DateValue first_;
    Label lblFrom{window(), IDC_lblForecast};
};

// Beside the main window; one that is open already comes forward.
void ShowForecast(Application& application);

}  // namespace kaz
