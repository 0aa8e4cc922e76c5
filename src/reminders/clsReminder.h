#pragma once

#include "reminders/MissedReminders.h"
#include "reminders/ReminderDay.h"
#include "reminders/ReminderWindows.h"
#include "storage/VisibleEvents.h"
#include "storage/clsDbXml.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Decides from the loaded events what the user is told and when. An engine is made for one pass or a few and
// holds no events; failures are logged.
class clsReminder {
public:
    // `events` and `expired` are null until a user has been chosen. `saveSettings` keeps which files of
    // others the user has allowed.
    clsReminder(
        const Stores& stores, ReminderWindows& windows, clsDbXml* events, clsDbXml* expired,
        std::function<void()> saveSettings = [] {})
        : stores_(stores),
          windows_(windows),
          events_(events),
          expired_(expired),
          saveSettings_(std::move(saveSettings)),
          visible_(stores.settings) {}

    // Moves recurring events whose day has passed on to their next day and the others to
    // the expired database, then saves both. It is one pass, which leaves out some. Without
    // an events database it does nothing.
    void UpdateAllEvents();
    // After as many passes as leave none out, shows the events that come up within their days of warning and
    // those of today. A window without any is closed; one that has shown the same on this day already stays
    // as the user left it.
    void DisplayReminders();
    // Shows both anew, whether they have been closed or sleep, in front and with the keyboard. False when
    // there is nothing in either.
    bool ShowAgain();
    // Shows the events of the database whose alarm minute is now and runs the files of those that have one.
    // With the time of the pass before, also those whose minute has come and gone since then, a day at most.
    void DisplayAlarms(const clsDbXml& database, std::optional<DateValue> lastPass = {});
    // Shows what is asleep and whose time has come; `all` finds the events. Once for each such time.
    void DisplayWoken(const MissedReminders& all);
    // The first minute after this one in which an alarm of the database, or a second warning, rings today, as
    // its events stand now.
    std::optional<DateValue> NextAlarm(const clsDbXml& database) const;

private:
    static constexpr std::string_view kModule = "clsReminder";

    // `asOf` is today unless given; the day itself is not past.
    bool IsExpired(DateValue dueDate, std::optional<DateValue> asOf = {}) const;
    void Update(int passes);
    void RemoveRetired(std::vector<std::size_t> positions);
    void Ring(const std::vector<ReminderLine>& lines, const std::string& sound);
    void Show(ReminderKind kind, const ReminderDay& today, const std::vector<ReminderLine>& lines,
              const std::string& sound);
    void ShowUpcoming(const ReminderDay& today);
    void ShowTodays(const ReminderDay& today);
    EventSource PlaceOf(const clsDbXml& database) const {
        return &database == events_ ? EventSource::Local : EventSource::Shared;
    }

    Stores stores_;
    ReminderWindows& windows_;
    clsDbXml* events_;
    clsDbXml* expired_;
    std::function<void()> saveSettings_;
    VisibleEvents visible_;
};

}  // namespace kaz
