#pragma once

#include "model/clsEvent.h"
#include "reminders/ReminderWindows.h"
#include "storage/Stores.h"

#include <functional>
#include <string>

namespace kaz {

// Runs the files of alarms that ring.
class AlarmFiles {
public:
    // `save` keeps which files the user has allowed.
    AlarmFiles(const Stores& stores, ReminderWindows& windows, std::function<void()> save)
        : stores_(stores),
          windows_(windows),
          save_(std::move(save)) {}

    // Opens the event's file with the program that the system has for it; one that is not there is logged.
    // `source` is the other user in whose file the event came, "" for an event of one's own. Another user's
    // file is opened only after the user of this machine has allowed it, and before that not even looked for:
    // a path can lead to a computer that takes down who asks. A failure is logged, and told, as a sentence
    // for the user; nothing when the file was opened, or the user is asked.
    std::string Run(const clsEvent& event, const std::string& source);

private:
    std::string AskFirst(const clsEvent& event, const std::string& source, const std::string& file);

    Stores stores_;
    ReminderWindows& windows_;
    std::function<void()> save_;
};

}  // namespace kaz
