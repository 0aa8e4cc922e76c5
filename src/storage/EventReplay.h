#pragma once

#include "storage/ChangedEvent.h"
#include "storage/clsDbXml.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kaz {

// Makes changes of events that are known beforehand, such as those that take a command back, with one save of
// each file. It touches these events only, and none that is not as the change found it: whoever has changed
// or deleted it since keeps what he did.
class EventReplay {
public:
    struct Result {
        std::vector<ChangedEvent> done;
        std::vector<clsEvent> left;                                 // as they are expected, and are no longer
        std::vector<std::pair<std::string, std::string>> newCodes;  // of events whose code another has by now
    };

    // Both databases outlive it.
    EventReplay(clsDbXml& events, clsDbXml& expired, const Stores& stores)
        : places_{{Place{events, {}, {}, {}, {}}, Place{expired, {}, {}, {}, {}}}},
          stores_(stores) {}

    Result Run(std::vector<ChangedEvent> changes);

private:
    struct Place {
        clsDbXml& database;
        std::unordered_map<std::string, const clsEvent*> alive;  // by code
        std::vector<clsEvent> stored;
        std::vector<std::size_t> renamed;  // of what is done, that needs a code of its own
        std::vector<std::string> leaving;  // once the other file has what goes there
    };
    struct Found {
        bool expired;
        const clsEvent* event;
    };

    bool IsSame(const clsEvent& there, const clsEvent& expected) const;
    void LookAt(Place& place);
    std::optional<Found> Find(const clsEvent& expected, bool expired) const;
    void Make(ChangedEvent change);
    void Put(ChangedEvent change, const Found* found);
    void TakeAway(const Found& found, bool moves);
    void Save();

    std::array<Place, 2> places_;  // the current events, the expired ones
    Stores stores_;
    Result result_;
};

}  // namespace kaz
