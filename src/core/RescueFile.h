#pragma once

#include "base/ErrorTrap.h"
#include "platform/Locale.h"
#include "storage/EventChanges.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What no disk has taken when the program ends.
struct Rescued {
    EventChanges events;
    EventChanges expired;
    std::string settings;  // the lines of the settings file, none when they are saved
    std::vector<std::string> tasks;

    bool Empty() const { return events.Empty() && expired.Empty() && settings.empty() && tasks.empty(); }
};

// The file that keeps it until the next start: a plain text with a heading for each part, the events in the
// blocks of the event file.
class RescueFile {
public:
    static constexpr std::string_view kName = "KAZ rescue.txt";

    static std::string TextOf(const Rescued& rescued);
    // Of a file that is cut short or foreign, what can be read; `whole` says whether it was all.
    static Rescued Read(std::string_view text, const Locale& locale, ErrorSink& errors, bool& whole);
};

}  // namespace kaz
