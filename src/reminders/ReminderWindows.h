#pragma once

#include "base/DateValue.h"
#include "reminders/MissedReminders.h"
#include "reminders/ReminderRequests.h"
#include "reminders/ReminderServices.h"
#include "reminders/frmMissed.h"
#include "reminders/frmReminder.h"
#include "reminders/frmRunFile.h"
#include "reminders/frmSleeping.h"

#include <array>
#include <compare>
#include <deque>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kaz {

class clsDbXml;

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

// The reminder windows of the application and what they have told already. They outlast the engines
// that fill them, so that a later pass refills or closes a window instead of opening a second one.
class ReminderWindows {
public:
    explicit ReminderWindows(const ReminderServices& services) : services_(services) {}

    // The window that is open, else a new one; after the user closed it the next pass makes it anew.
    // Throws InternalError when the window cannot be made.
    frmReminder& Open(ReminderKind kind);
    // Hides and unloads the window, if there is one.
    void Close(ReminderKind kind);

    // Whether the window has had these lines on that day, so that they disturb nobody again who has closed it
    // or lets it sleep. On the next day they are news.
    bool HasShown(ReminderKind kind, DateValue day, const std::vector<std::string>& lines) const;
    void SetShown(ReminderKind kind, DateValue day, std::vector<std::string> lines);
    void ForgetShown();
    // These without what the user has dealt with by itself on that day, and what comes again later.
    std::vector<ReminderLine> WithoutLeft(ReminderKind kind, DateValue now, std::vector<ReminderLine> lines);
    // Has those for today and for what comes up appear at once, and the user in them. False when neither is
    // there.
    bool ShowNow();

    // Shows a window of each kind with that line alone, beside the real ones: of these and of what they have
    // shown nothing changes. Those of the test before go. Throws InternalError when one cannot be made.
    void ShowTest(const std::string& line);
    void CloseTest();

    // Takes the lines of these occurrences from every window; one without any left closes.
    void DropLines(const std::function<bool(const OccurrenceRef&)>& isOver);

    // Has what waited because it was quiet appear, and the questions be put.
    void QuietEnded();

    // Whether this ringing has been listed or has run its file, however many ticks see its minute and whether
    // or not its window has been closed since.
    bool HasRung(const AlarmRinging& ringing) const { return rung_.contains(ringing); }
    void SetRung(const AlarmRinging& ringing);

    // What the alarm window shows now, and nobody has closed yet.
    std::set<OccurrenceRef> Ringing() const;
    Outcomes& Told() const { return services_.outcomes; }

    // What fell due and was not answered. The window that is open, or opened by something new among it, shows
    // it. When it is not what it was, those who want to know are told last of all.
    void ShowMissed(std::vector<MissedReminder> missed);
    // Shows it to a user who asks for it. False when nothing is missed.
    bool OpenMissed();
    const std::vector<MissedReminder>& Missed() const { return missed_; }

    // Shows what the user has put off. False when there is nothing.
    bool OpenSleeping();

    // Set by those who can do it.
    ReminderRequests requests;

    // How often something has been shown or run since the start.
    int TimesShown() const { return timesShown_; }

    // Puts the question; while another one is open, after it. One that waits already is not put twice. False
    // when too many wait.
    bool Ask(FileQuestion question);

private:
    std::shared_ptr<frmRunFile> OpenQuestion() const;
    void AskNext();
    std::shared_ptr<frmReminder> Find(ReminderKind kind) const;
    std::shared_ptr<frmMissed> FindMissed() const;
    frmMissed& MissedWindow();

    ReminderServices services_;
    std::array<std::weak_ptr<frmReminder>, 3> forms_;
    std::array<std::weak_ptr<frmReminder>, 3> tests_;
    struct Showing {
        DateValue day;
        std::vector<std::string> lines;
        bool operator==(const Showing&) const = default;
    };
    std::array<std::optional<Showing>, 3> shown_;
    std::array<std::set<OccurrenceRef>, 3> left_;
    std::set<AlarmRinging> rung_;
    std::vector<MissedReminder> missed_;
    std::set<OccurrenceRef> missedShown_;
    std::weak_ptr<frmMissed> missedForm_;
    std::weak_ptr<frmMissed> missedTest_;
    std::weak_ptr<frmSleeping> sleepingForm_;
    bool missedWaits_ = false;  // for the end of the quiet
    int timesShown_ = 0;
    std::deque<FileQuestion> waiting_;
    std::weak_ptr<frmRunFile> question_;
};

}  // namespace kaz
