#pragma once

#include "base/Version.h"

#include <string>
#include <string_view>

namespace kaz {

inline constexpr std::string_view kApplicationName = "KAZ";

// The files that the program keeps.
inline constexpr std::string_view kLogFile = "Log_KAZ.txt";
inline constexpr std::string_view kJournalFile = "Changes_KAZ.txt";
inline constexpr std::string_view kSettingsFile = "Kaz.ini";
inline constexpr std::string_view kEventsFile = "Events.xml";
inline constexpr std::string_view kExpiredFile = "Expired.xml";
inline constexpr std::string_view kSideFile = "Events.side";  // SideFile makes it of the events file's name
inline constexpr std::string_view kTaskFile = "tasklist.xml";
inline constexpr std::string_view kSoundsFile = "EventWavs.ini";
// The extension of the event files from before the XML files.
inline constexpr std::string_view kOldExtension = ".dat";
inline constexpr std::string_view kBackupFolder = "Autobackups";
// Beside the program.
inline constexpr std::string_view kHelpFile = "KAZ.html";

// The component's version, such as "1.0.0".
inline std::string VersionText() {
    return std::to_string(kMajor) + "." + std::to_string(kMinor) + "." + std::to_string(kRevision);
}

}  // namespace kaz
