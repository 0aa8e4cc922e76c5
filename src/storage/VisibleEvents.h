#pragma once

#include "storage/clsDbXml.h"
#include "support/cSHAREDSettings.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kaz {

// Which database an event is in.
enum class EventSource : std::uint8_t { Local, Shared, Expired };

// What the list's Type column says of an event: nothing, "*", "S", "E".
enum class EventType : std::uint8_t { Own, Offered, Foreign, Past };

struct VisibleEvent {
    const clsEvent& event;
    EventSource source;
    bool isForeign;  // somebody else's: in a network, whatever another name stands on
    DateValue due;

    EventType Type(DateValue today) const {
        if (due < today) return EventType::Past;
        if (isForeign) return EventType::Foreign;
        return event.SharedEvent ? EventType::Offered : EventType::Own;
    }
    std::int32_t DaysLeft(DateValue today) const { return due.Day() - today.Day(); }
};

// The one rule of which events this user sees: all that are not deleted, and of those that others share, only
// in a network, the ones that are not his own and so are in his list already. The list, the month, the tray,
// the host's lists and the reminders show these and no others. It only looks; category and "runs a file" are
// filters of those who show.
class VisibleEvents {
public:
    // The user and the network as the settings name them now.
    explicit VisibleEvents(const cSHAREDSettings& settings);

    bool IsForeign(const clsEvent& event) const { return networked_ && event.Owner() != user_; }
    // Nothing for an event that this user does not see.
    std::optional<VisibleEvent> See(const clsEvent& event, EventSource source) const {
        const bool isForeign = IsForeign(event);
        if (event.Deleted || (source == EventSource::Shared && !isForeign)) return std::nullopt;
        return VisibleEvent{event, source, isForeign, event.DueDate()};
    }
    // Calls `use` with each that this user sees, in the order of the collection; a missing database has none.
    template <class Use>
    void ForEach(const clsDbXml* database, EventSource source, Use use) const {
        if (!database) return;
        for (const clsEvent& event : database->AllEvents())
            if (const auto seen = See(event, source)) use(*seen);
    }

private:
    std::string user_;
    bool networked_;
};

}  // namespace kaz
