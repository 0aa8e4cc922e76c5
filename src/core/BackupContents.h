#pragma once

#include "core/Application.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kaz {

// A backup that can be looked into: an archive, or a copy of the event files that was kept beside the
// archives.
struct BackupSource {
    std::string path;
    DateValue made;
    bool isReadable = false;  // else it is damaged, or has no events file
    std::size_t events = 0;   // current ones
    std::size_t expired = 0;
};

// All of them, in the program's folder for backups and in the second one, the newest first. None stops the
// others.
std::vector<BackupSource> FindBackups(Application& app);

// An event as a backup has it, and as it is now.
struct BackedUpEvent {
    enum class State : std::uint8_t { Missing, Different, Here };

    clsEvent event;
    bool expired = false;
    State state = State::Missing;
    std::optional<clsEvent> now;  // when it is different
    bool nowExpired = false;
};

// The events of a backup: first what is not here any more, then what is different, then the rest, each by
// day. An event is here when one with its words is, whatever its code; it is different when its code has
// other words or, unless it recurs, another day.
std::vector<BackedUpEvent> EventsOfBackup(Application& app, const std::string& path);

}  // namespace kaz
