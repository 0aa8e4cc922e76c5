#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"

#include <memory>

namespace kaz {

// "Test my reminders": rings, shows a window of each kind with a line that says it is a test, and says what
// works and what does not. The test windows go with it.
class frmTestReminders : public Form {
public:
    static constexpr const char* kName = "frmTestReminders";

    // The application outlives the form.
    frmTestReminders(std::unique_ptr<kaz::Window> window, Application& application);

    void Run();
    void Form_Unload() override;

private:
    Application& app_;
    Label lblResult{window(), IDC_lblTestResult};
    TextBox txtFindings{window(), IDC_txtTestFindings};
};

// Opens it, or begins anew in the one that is open.
void TestReminders(Application& application);

}  // namespace kaz
