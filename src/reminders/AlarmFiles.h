#pragma once

#include "model/clsEvent.h"
#include "reminders/ReminderServices.h"

#include <string>

namespace kaz {

// Runs the files of alarms that ring.
class AlarmFiles {
public:
    explicit AlarmFiles(const ReminderServices& services) : services_(services) {}

    // Opens the event's file with the program that the system has for it; one that is not there is logged.
    // The file of an event that came from another user is opened only after the user of this machine has
    // allowed it. A failure is logged.
    void Run(const clsEvent& event, bool ofAnotherUser);

private:
    void AskFirst(const clsEvent& event, const std::string& file);

    ReminderServices services_;
};

}  // namespace kaz
