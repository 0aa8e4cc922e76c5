#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "reminders/ReminderServices.h"
#include "resources/resource.h"

#include <functional>
#include <memory>
#include <string>

namespace kaz {

// A file that an event of another user wants to run.
struct FileQuestion {
    std::string source;  // in whose file the event came, whatever owner it claims
    std::string event;
    std::string file;
    std::function<void(bool yes)> answer;  // what it refers to must live as long as the open windows do

    bool IsSameAs(const FileQuestion& other) const { return source == other.source && file == other.file; }
};

// Asks whether the file may run. The question comes by itself while the user types somewhere else: it takes
// no keyboard, and a key that was meant for another window does not answer it. Closed, it is answered with
// No; the end of the program leaves it without an answer.
class frmRunFile : public Form {
public:
    // `next` follows the answer.
    frmRunFile(std::unique_ptr<Window> window, const ReminderServices& services, FileQuestion question,
               std::function<void()> next);

    void Ask();
    const FileQuestion& Question() const { return question_; }
    // Whether it has been closed; it may live on until its handlers have ended.
    bool Closed() const { return closed_; }
    void Form_Unload() override;

private:
    void Timer1_Timer();
    void Form_Activate(int how);
    void Form_QueryUnload() { Answer(false); }
    void cmdYes_Click() { Answer(true); }
    void cmdNo_Click() { Answer(false); }

    void Rest();
    void EnableAnswers(bool enabled);
    void Answer(bool yes);

    ReminderServices services_;
    FileQuestion question_;
    std::function<void()> next_;
    Label lblSource{window(), IDC_lblSource};
    Label lblEvent{window(), IDC_lblEvent};
    TextBox txtFile{window(), IDC_txtFile};
    Button cmdYes{window(), IDC_cmdYes};
    Button cmdNo{window(), IDC_cmdNo};
    TimerControl Timer1{window(), IDT_Timer1};
    bool closed_ = false;
};

}  // namespace kaz
