#pragma once

#include "model/clsEvent.h"
#include "storage/EventDigest.h"
#include "storage/KnownEvents.h"

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kaz {

// Brings together what a file holds now and what was changed here since it was last known, event by event.
// Others write the same file without any lock, so a change that was saved may be missing from it all the
// same; it is put there again, a bounded number of times for each event.
class EventMerge {
public:
    // What is remembered from one merge to the next.
    struct Memory {
        KnownEvents confirmed;  // what the file was last found to hold
        KnownEvents saved;      // what was last written to it, or else the same
        // Versions that were saved, and replaced before the file was looked at: they are ours as well.
        std::unordered_multimap<std::string, EventDigest> former;
        std::map<std::string, int> again;  // how often an event was put on top again
    };

    struct Result {
        std::vector<clsEvent> events;    // in the order of the file, what is new at the end
        std::vector<clsEvent> newCodes;  // join them under another code, since somebody else has theirs
        std::vector<clsEvent> gone;      // were here, and are no longer, by no command of this program
        std::vector<clsEvent> yielded;   // ours, saved once, that a later change by another took the place of
        bool hidesTheirs = false;        // a change by another gave way to one that was never saved
    };

    // An addition is told by its content, a deletion by its code.
    static Result Run(std::vector<clsEvent> file, const std::vector<clsEvent>& here, Memory& memory);

private:
    EventMerge(std::vector<clsEvent> file, Memory& memory);

    void Place(const clsEvent& event);
    void PlaceChanged(const clsEvent& event);
    void PlaceMissing(const clsEvent& event);
    void DeleteAgain();
    bool WasOurs(const std::string& code, const EventDigest& found) const;
    bool IsSaved(const clsEvent& event) const;
    bool MayTryAgain(const std::string& code);
    static void TakePlaceOf(clsEvent& theirs, const clsEvent& ours);
    void ForgetMoved();

    Memory& memory_;
    Result result_;
    std::vector<clsEvent> added_;
    std::unordered_map<std::string_view, std::size_t> inFile_;  // by code, the place in the file
    std::unordered_set<std::string_view> alive_;                // the codes that are in use here
    std::map<std::string, int> againBefore_;
};

}  // namespace kaz
