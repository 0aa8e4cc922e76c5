#pragma once

#include "fakes/RecordingErrors.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"
#include "forms/OpenWindows.h"
#include "reminders/ReminderWindows.h"
#include "reminders/clsReminder.h"
#include "storage/cSharedSound.h"

#include <string>
#include <vector>

namespace kaz {

// Everything that a reminder needs, on fakes. It is 15 March 2023, nine o'clock.
class ReminderDesk : public StorageDesk {
public:
    ReminderDesk();

    // A one-off event in so many days, in the events database or another.
    clsEvent& Add(const std::string& description, int inDays, clsDbXml* database = nullptr);
    // An alarm today at "HH:MM".
    clsEvent& AddAlarm(const std::string& description, const std::string& time, clsDbXml* database = nullptr);

    clsReminder Engine();
    void Alarms(const std::string& time, clsDbXml* database = nullptr);  // one pass at "HH:MM:SS"
    // The newest living window with that heading; null when there is none.
    FakeWindow* Window(const std::string& heading) { return machine.windows.WithCaption(heading); }
    std::vector<std::string> List(const std::string& heading);
    // The texts of the log without their numbers and times, and forgets them.
    std::vector<std::string> TakeLog();
    // What a program that starts now would find in the two files.
    std::vector<std::string> OnDisk(const std::string& file);

    RecordingErrors errors;
    cSharedSound player{machine.sound, machine.files, log};
    std::string folder = "C:\\KAZ";
    StorageServices storage = Services();
    clsDbXml events{storage};
    clsDbXml expired{storage};
    clsDbXml shared{storage};
    OpenWindows openWindows;
    ReminderWindows windows{{machine.clock, machine.windows, openWindows, errors, machine.dialogs,
                             machine.files, machine.pump, settings, player, folder}};

private:
    int codes_ = 0;
};

}  // namespace kaz
