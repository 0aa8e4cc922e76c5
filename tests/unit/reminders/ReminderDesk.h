#pragma once

#include "fakes/FakePlatform.h"
#include "platform/OpenWindows.h"
#include "reminders/ReminderWindows.h"
#include "reminders/clsReminder.h"
#include "storage/cSharedSound.h"
#include "storage/clsDbXml.h"
#include "storage/clsLayers.h"
#include "support/cSHAREDSettings.h"
#include "support/cSharedLogging.h"

#include <string>
#include <vector>

namespace kaz {

// Everything that a reminder needs, on fakes. It is 15 March 2023, nine o'clock.
class ReminderDesk {
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

    struct Reports : ErrorSink {
        std::vector<std::string> told;
        void Report(const ErrorInfo& error, std::string_view procedure,
                    std::string_view module) noexcept override;
    };

    FakePlatform machine;
    Reports errors;
    cSharedLogging log{machine.files, machine.clock, machine.system, {"KAZ", "1.0.0"}};
    cSHAREDSettings settings{machine.files, machine.locale, machine.dialogs, log};
    clsLayers layers{settings, machine.locale};
    cSharedSound player{machine.sound, machine.files, log};
    std::string folder = "C:\\KAZ";
    StorageServices storage{machine.files, machine.clock, machine.random, machine.locale,
                            log,           settings,      layers};
    clsDbXml events{storage};
    clsDbXml expired{storage};
    clsDbXml shared{storage};
    OpenWindows openWindows;
    ReminderWindows windows{{machine.windows, openWindows, errors, machine.dialogs, machine.files,
                             machine.pump, settings, player, folder}};

private:
    int codes_ = 0;
};

}  // namespace kaz
