#pragma once

#include <optional>
#include <string>

namespace kaz {

class Application;

// What the options dialog edits.
struct Options {
    std::string dataPath;
    std::string alarmWav;
    bool noSounds = false;
    bool networked = false;
    std::string sharedPath;
    std::string owner;
    bool europeanDates = false;
    std::optional<bool> startsAtLogon;  // nothing where the system cannot start the program
    bool silentStart = false;
    bool disableAutoUpdate = false;
    bool noAutoBackups = false;
    std::string secondBackup;  // a folder, empty for none
    bool quietScreen = false;
    std::string quietFrom;  // "HH:MM", both empty for no quiet hours
    std::string quietTo;
    std::string wordsKey;  // such as "Ctrl+Alt+K", empty for none

    static Options Of(const Application& application);
};

}  // namespace kaz
