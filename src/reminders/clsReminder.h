#pragma once

#include "reminders/ReminderServices.h"
#include "storage/clsDbXml.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Decides from the loaded events what the user is told and when. An engine is made for one pass or a few and
// holds no events; failures are logged.
class clsReminder {
public:
    explicit clsReminder(const ReminderServices& services) : services_(services) {}

    // Moves recurring events whose day has passed on to their next day and the others to the expired
    // database, then saves both. Without an events database it does nothing.
    void UpdateAllEvents();
    // After an update, shows the events that come up within their days of warning and those of today. A
    // window without any is closed.
    void DisplayReminders();
    // Shows the events of the database whose alarm minute is now and runs the files of those that have one.
    // With the time of the pass before, also those whose minute has come and gone since then, a day at most.
    void DisplayAlarms(const clsDbXml& database, std::optional<DateValue> lastPass = {});

private:
    static constexpr std::string_view kModule = "clsReminder";

    // `asOf` is today unless given; the day itself is not past.
    bool IsExpired(DateValue dueDate, std::optional<DateValue> asOf = {}) const;
    void RemoveRetired(const std::vector<std::size_t>& positions);
    void ShowUpcoming(DateValue today);
    void ShowTodays(DateValue today);

    ReminderServices services_;
};

}  // namespace kaz
