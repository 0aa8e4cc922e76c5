#pragma once

#include "base/DateValue.h"
#include "reminders/ReminderServices.h"
#include "reminders/frmReminder.h"
#include "reminders/frmRunFile.h"

#include <array>
#include <compare>
#include <deque>
#include <memory>
#include <set>
#include <string>

namespace kaz {

enum class ReminderKind { Today, ComingUp, Alarm };

// One ringing of one event.
struct AlarmRinging {
    const clsDbXml* database = nullptr;  // only ever compared
    std::string source;                  // in whose file it came
    std::string owner;
    std::string code;
    DateValue minute;
    friend auto operator<=>(const AlarmRinging&, const AlarmRinging&) = default;
};

// The three reminder windows of the application and what they have told already. They outlast the engines
// that fill them, so that a later pass refills or closes a window instead of opening a second one.
class ReminderWindows {
public:
    explicit ReminderWindows(const ReminderWindowServices& services) : services_(services) {}

    // The window that is open, else a new one; after the user closed it the next pass makes it anew.
    // Throws InternalError when the window cannot be made.
    frmReminder& Open(ReminderKind kind);
    // Hides and unloads the window, if there is one.
    void Close(ReminderKind kind);

    // Whether the open alarm window holds this ringing already; forgotten with the window.
    bool IsListed(const AlarmRinging& ringing) const;
    void SetListed(const AlarmRinging& ringing) { listed_.insert(ringing); }

    // True for the first call of a ringing: a file that an alarm runs is run once, however many ticks see its
    // minute.
    bool FirstRun(const AlarmRinging& ringing);

    // How often something has been shown or run since the start.
    int TimesShown() const { return timesShown_; }

    // Puts the question; while another one is open, after it. One that waits already is not put twice. False
    // when too many wait.
    bool Ask(FileQuestion question);

private:
    std::shared_ptr<frmRunFile> OpenQuestion() const;
    void AskNext();
    std::shared_ptr<frmReminder> Find(ReminderKind kind) const;

    ReminderWindowServices services_;
    std::array<std::weak_ptr<frmReminder>, 3> forms_;
    std::set<AlarmRinging> listed_;
    std::set<AlarmRinging> run_;
    int timesShown_ = 0;
    std::deque<FileQuestion> waiting_;
    std::weak_ptr<frmRunFile> question_;
};

}  // namespace kaz
