#pragma once

#include "model/clsEvent.h"
#include "storage/EventCodes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The events of a database, in the order of their file. What was found out about them holds until they
// change, so nobody changes one but through this.
class EventCollection {
public:
    // Both outlive the object.
    EventCollection(const Clock& clock, Random& random) : codes_(clock, random) {}

    const std::vector<clsEvent>& All() const { return events_; }
    // Another number after each change.
    std::uint64_t Version() const { return version_; }

    // Runs `change` on the events. What it was given is not kept, and not asked for its version meanwhile.
    template <class Change>
    auto ChangeAll(Change change) {
        const Marked marked(*this);
        return change(events_);
    }
    // Takes the place of the event with the same code, at the end.
    void Store(clsEvent event);

    // The first event with the code, or null; valid until the events change.
    const clsEvent* Find(std::string_view code) const;
    bool Holds(std::string_view code) { return codes_.MayHold(events_, code) && Find(code); }
    // Throws InternalError when every code is in use.
    std::string UnusedCode(const EventCodes::IsTaken& isTaken) { return codes_.Unused(events_, isTaken); }

private:
    // Also when the change ends with an error, it may have been half of one.
    class Marked {
    public:
        explicit Marked(EventCollection& events) : events_(events) {}
        ~Marked() {
            events_.codes_.Forget();
            ++events_.version_;
        }
        Marked(const Marked&) = delete;
        Marked& operator=(const Marked&) = delete;

    private:
        EventCollection& events_;
    };

    std::vector<clsEvent> events_;
    EventCodes codes_;
    std::uint64_t version_ = 1;
};

}  // namespace kaz
