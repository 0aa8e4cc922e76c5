#pragma once

#include "base/ErrorTrap.h"
#include "platform/Locale.h"
#include "storage/EventChanges.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Of one event file.
struct RescuedEvents {
    EventChanges changes;
    // The rest of a file that was saved once, and could not be seen at the end.
    std::vector<clsEvent> unseen;

    bool Empty() const { return changes.Empty() && unseen.empty(); }
    void Add(const RescuedEvents& more);
};

// What no disk has when the program ends, as far as it can see.
struct Rescued {
    std::string dataFolder;     // to whose files it belongs
    std::string programFolder;  // to whose settings
    RescuedEvents events;
    RescuedEvents expired;
    std::string beside;    // the lines of the side file that were added and removed
    std::string settings;  // the lines of the settings file, none when they are saved
    std::vector<std::string> tasks;

    bool Empty() const {
        return events.Empty() && expired.Empty() && beside.empty() && settings.empty() && tasks.empty();
    }
};

// The file that keeps it until the next start: a plain text with a heading for each part, the events in the
// blocks of the event file.
class RescueFile {
public:
    static std::string TextOf(const Rescued& rescued);
    // Of a file that is cut short or foreign, what can be read; `whole` says whether it was all.
    static Rescued Read(std::string_view text, const Locale& locale, ErrorSink& errors, bool& whole);
};

}  // namespace kaz
