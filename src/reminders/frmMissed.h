#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "reminders/AgainMenu.h"
#include "reminders/MissedReminders.h"
#include "reminders/OccurrenceRows.h"
#include "reminders/ReminderRequests.h"
#include "reminders/ReminderServices.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kaz {

// The list of what fell due without an answer. Closing it answers nothing; it closes by itself when nothing
// is left in it.
class frmMissed : public Form {
public:
    // `requests` outlives the form's handlers.
    frmMissed(std::unique_ptr<Window> window, const ReminderServices& services, ReminderRequests& requests);

    // What is missed now; what was selected and is still there stays selected.
    void Fill(std::vector<MissedReminder> missed);
    void Appear(Activation activation);
    // Shows that line alone, under that heading. Whatever is done to it answers nothing.
    void ShowAsTest(const std::string& heading, const std::string& line);
    // Whether it has been closed; it may live on until its handlers have ended.
    bool Closed() const { return closed_; }
    void Form_Unload() override;

private:
    void lstMissed_Click() { ShowButtons(); }
    void lstMissed_DblClick();
    void cmdDone_Click();
    void cmdAgainToday_Click();
    void cmdAgain_Click();
    void mnuAgain_Click(int command);
    void cmdRun_Click();
    void cmdMail_Click();
    void cmdAll_Click();
    void Close();
    void Heading(const std::string& text);

    using Names = std::set<OccurrenceRef>;  // of lines, by their last occurrences
    Names Selected() const;
    std::vector<MissedReminder> LinesOf(const Names& names) const;
    // The selected line when it is one alone, else null.
    const MissedReminder* Single() const;
    void Answer(const Names& names);
    void Do(const ReminderRequests::Done& request, const OccurrenceRef& name);
    void PutOff(const std::vector<MissedReminder>& lines, DateValue until);
    void Drop(const Names& names);
    TextRows::Row RowOf(const MissedReminder& missed) const;
    void ShowButtons();

    ReminderServices services_;
    ReminderRequests& requests_;
    AgainMenu again_;
    std::vector<MissedReminder> missed_;
    OccurrenceRows rows_;
    Label lblHeading{window(), IDC_lblMissed};
    Button cmdDone{window(), IDC_cmdMissedDone};
    Button cmdAgainToday{window(), IDC_cmdMissedToday};
    Button cmdAgain{window(), IDC_cmdMissedAgain};
    Button cmdEdit{window(), IDC_cmdMissedEdit};
    Button cmdRun{window(), IDC_cmdMissedRun};
    Button cmdMail{window(), IDC_cmdMissedMail};
    bool closed_ = false;
};

}  // namespace kaz
