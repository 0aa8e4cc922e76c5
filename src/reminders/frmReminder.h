#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/TextRows.h"
#include "reminders/AgainMenu.h"
#include "reminders/ReminderLines.h"
#include "reminders/ReminderRequests.h"
#include "reminders/ReminderServices.h"
#include "resources/resource.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kaz {

// A list of reminders that comes back to the front every 30 seconds, with its sound if it has one, until the
// user closes it or lets it sleep for some minutes. A line can be answered by itself, or come again later; a
// window without lines closes.
class frmReminder : public Form {
public:
    // `requests` outlive the form's handlers; `left` is told of each line that the user has dealt with by
    // itself.
    frmReminder(std::unique_ptr<Window> window, const ReminderServices& services, ReminderRequests& requests,
                std::function<void(const OccurrenceRef&)> left);

    // Heading and caption. The first one makes the window appear, two seconds later.
    void Heading(const std::string& text);
    void AddToList(const std::string& text) { AddToList({{.text = text}}); }
    // Adds many lines with one filling of the list box.
    void AddToList(const std::vector<ReminderLine>& lines);
    // Promised: the program itself never calls it.
    void ClearList();
    // Takes these lines for those that it has.
    void ReplaceList(const std::vector<ReminderLine>& lines);
    const std::vector<ReminderLine>& Lines() const { return lines_.All(); }
    // Takes the lines of these occurrences out of the window, which closes behind the last one.
    void DropLines(const std::function<bool(const OccurrenceRef&)>& isOver);

    // Ends any sleep and makes the window come to the front, two seconds later.
    void Wake();
    // Shows it under that heading, without coming back to the front: what tells of it stays before it.
    void ShowAsTest(const std::string& heading);
    // Shows it at once, to a user who has asked for it.
    void ShowNow();
    // Shows it at once and above all other windows: an alarm is late by two seconds already.
    void ShowOnTop();
    // What waited because it was quiet appears.
    void QuietEnded();
    // Whether it has been closed; it may live on until its handlers have ended.
    bool Closed() const { return closed_; }
    void Form_Unload() override;

    bool HasRung = false;  // what it shows: then its closing answers it whatever the clock says now
    bool PlaySound = false;
    std::string SoundFile;  // one that does not exist gives way to the default sound

private:
    void Timer1_Timer();
    void cmdRemindMe_Click();
    void cmdContinue_Click();
    void lstReminders_Click() { ShowButtons(); }
    void lstReminders_DblClick();
    void cmdDone_Click();
    void cmdAgain_Click();
    void cmdLast_Click();
    void mnuAgain_Click(int command);

    std::vector<ReminderLine> Selected() const;
    void Answer(const std::vector<ReminderLine>& lines);
    void PutOff(const std::vector<ReminderLine>& lines, const AgainChoice& choice);
    void Leave(const std::vector<ReminderLine>& lines);
    void Drop(const std::vector<ReminderLine>& lines);
    void Show(const std::vector<ReminderLine>& selected);
    bool CanStart(const std::vector<ReminderLine>& lines) const;
    std::string TimeOf(const ReminderLine& line) const;
    void ShowButtons();

    void Arm(int milliseconds);
    void CountSleep();
    bool SleepIsOver();
    bool MustWait();
    bool ComeToFront();
    void PlayItsSound();
    void FillList();

    ReminderServices services_;
    ReminderRequests& requests_;
    std::function<void(const OccurrenceRef&)> left_;
    AgainMenu again_;
    ReminderLines lines_;
    std::vector<ReminderLine> shown_;  // as they stand in the list
    TextRows rows_;
    ReportList& lstReminders_;
    Label lblHeading{window(), IDC_lblHeading};
    Button cmdDone{window(), IDC_cmdLineDone};
    Button cmdAgain{window(), IDC_cmdLineAgain};
    Button cmdLast{window(), IDC_cmdLineLast};
    TextBox txtSleep{window(), IDC_txtSleep};
    TimerControl Timer1{window(), IDT_Timer1};
    bool armed_ = false;
    bool closed_ = false;
    bool sleeping_ = false;
    bool waits_ = false;  // for the end of the quiet
    int sleepMinutes_ = 0;
    DateValue sleepEnd_;
    int seconds_ = 0;
    int minutes_ = 0;
};

}  // namespace kaz
