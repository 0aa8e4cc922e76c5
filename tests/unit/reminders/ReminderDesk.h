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

// The engine of the user Ann, on fakes. It is 15 March 2023, nine o'clock.
class ReminderDesk : public StorageDesk {
public:
    ReminderDesk() : StorageDesk("Ann") {
        events.SetDBFilename("C:\\KAZ\\Events.xml");
        expired.SetDBFilename("C:\\KAZ\\Expired.xml");
        shared.SetDBFilename("C:\\KAZ\\Shared_Ann.xml");
    }

    // An event that is due in so many days: each one of them, or once.
    clsEvent& Add(const std::string& description, int inDays, bool recurring = false) {
        clsEvent event =
            OneOff(std::to_string(1000 + codes_++), description, machine.clock.Today().PlusDays(inDays));
        event.Recurring(recurring);
        return Changing(events).emplace_back(event);
    }
    clsReminder Engine() { return clsReminder(storage, windows, &events, &expired); }
    // The texts of the log without their numbers and times, and forgets them.
    std::vector<std::string> TakeLog() {
        const std::string file = Log();
        std::vector<std::string> texts;
        for (const auto line : Split(file, kLineBreak))
            if (const auto comma = line.find(", "); comma != std::string_view::npos)
                texts.emplace_back(line.substr(comma + 2));
        machine.files.Remove(log.CurrentLogFilename());
        return texts;
    }
    // What a program that starts now would find in the file.
    std::vector<std::string> OnDisk(const std::string& file) {
        clsDbXml database(storage);
        database.LoadDB(folder + "\\" + file);
        return DescriptionsOf(database.AllEvents());
    }

    RecordingErrors errors;
    cSharedSound player{machine.sound, machine.files, log};
    std::string folder = "C:\\KAZ";
    Stores storage = Services();
    clsDbXml events{storage};
    clsDbXml expired{storage};
    clsDbXml shared{storage};
    OpenWindows openWindows;
    SideFile side{machine.files, log};
    Outcomes outcomes{side};
    Quiet quiet{machine.Services(), settings, folder};
    ReminderWindows windows{
        {machine.Services(), settings, openWindows, errors, player, outcomes, folder, quiet}};

private:
    int codes_ = 0;
};

}  // namespace kaz
