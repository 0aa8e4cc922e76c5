#include "ui/forecast/frmTestReminders.h"

#include "base/Text.h"
#include "core/ReminderTest.h"
#include "forms/WindowFactory.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kaz {

namespace {

using Result = ReminderTest::Result;

const char* MarkOf(Result result) {
    switch (result) {
    case Result::Fine: return "OK - ";
    case Result::Note: return "NOTE - ";
    case Result::Wrong: break;
    }
    return "NOT OK - ";
}

}  // namespace

frmTestReminders::frmTestReminders(std::unique_ptr<kaz::Window> window, Application& application)
    : Form(std::move(window), application.errors, kName),
      app_(application) {
    On(IDC_cmdTestAgain, Raised::Click, "cmdTestAgain_Click", [this] { Run(); });
    for (const auto& [control, what] :
         {std::pair{0, Raised::CloseBox}, std::pair{IDC_cmdCloseTest, Raised::Click}})
        On(control, what, "cmdClose_Click", [this] { app_.openWindows.Unload(*this); });
}

void frmTestReminders::Run() {
    std::vector<ReminderTest::Finding> findings = ReminderTest(app_).Run();
    try {
        app_.reminderWindows.ShowTest("TEST - this is only a test, and no event of yours");
        findings.insert(findings.begin(),
                        {Result::Fine, "Windows: COMING UP, TODAY!, ALARM! and MISSED are on the screen, "
                                       "each with a line that says TEST."});
    } catch (...) {
        findings.insert(findings.begin(), {Result::Wrong, "Windows: they cannot be shown: " +
                                                              CurrentError().description + "."});
    }
    std::string text;
    for (const ReminderTest::Finding& finding : findings)
        text.append(MarkOf(finding.result))
            .append(OneLine(finding.text))
            .append(kLineBreak)
            .append(kLineBreak);
    txtFindings.Text(text);
    const auto wrong = std::ranges::count(findings, Result::Wrong, &ReminderTest::Finding::result);
    lblResult.Text(wrong == 0 ? "Your reminders work." : "Something is wrong: see what begins with NOT OK.");
    // In front of the test's windows.
    window().Show(Activation::TakeFocus);
    window().SetFocus(IDC_cmdCloseTest);
}

void frmTestReminders::Form_Unload() {
    app_.reminderWindows.CloseTest();
    window().Hide();
}

void TestReminders(Application& application) {
    auto form =
        std::dynamic_pointer_cast<frmTestReminders>(application.openWindows.Find(frmTestReminders::kName));
    if (!form) {
        form = std::make_shared<frmTestReminders>(application.platform.windows.Create(IDD_TESTREMINDERS),
                                                  application);
        application.openWindows.Add(form);
    }
    form->Run();
}

}  // namespace kaz
