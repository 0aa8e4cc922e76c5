#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "reminders/OccurrenceRows.h"
#include "reminders/ReminderRequests.h"
#include "reminders/ReminderServices.h"
#include "resources/resource.h"

#include <memory>
#include <vector>

namespace kaz {

// The list of what the user has put off and what has not come again yet, the next one first.
class frmSleeping : public Form {
public:
    // `requests` outlive the form's handlers.
    frmSleeping(std::unique_ptr<Window> window, const ReminderServices& services, ReminderRequests& requests);

    // What sleeps now. False when nothing does.
    bool Fill();
    void Appear();
    // Whether it has been closed; it may live on until its handlers have ended.
    bool Closed() const { return closed_; }
    void Form_Unload() override;

private:
    void lstSleeping_Click() { ShowButtons(); }
    void lstSleeping_DblClick();
    void cmdWake_Click();
    void cmdEnd_Click();
    void Close();

    void Changed();
    void ShowButtons();

    ReminderServices services_;
    ReminderRequests& requests_;
    OccurrenceRows rows_;
    Button cmdWake{window(), IDC_cmdSleepingWake};
    Button cmdEnd{window(), IDC_cmdSleepingDone};
    Button cmdEdit{window(), IDC_cmdSleepingEdit};
    bool closed_ = false;
};

}  // namespace kaz
