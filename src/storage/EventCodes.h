#pragma once

#include "model/clsEvent.h"
#include "platform/Clock.h"
#include "platform/Random.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The identifier codes of a database: six digits, "000000" to "100000". Remembers which ones a collection
// uses, so that a new code does not cost a walk through all events.
class EventCodes {
public:
    // Both outlive the object.
    EventCodes(const Clock& clock, Random& random) : clock_(clock), random_(random) {}

    // Forgets what is known; for a collection that somebody else may have changed.
    void Forget() { known_ = false; }
    // Tells that an event with this code was appended.
    void Added(std::string_view code);

    // False only when none of the events has the code.
    bool MayHold(const std::vector<clsEvent>& events, std::string_view code);
    using IsTaken = std::function<bool(const std::string& code)>;
    // A code that none of the events has, nor those of which `isTaken` knows. Throws InternalError when every
    // code is in use.
    std::string Unused(const std::vector<clsEvent>& events, const IsTaken& isTaken);
    // The places of the events whose code another one before them has.
    static std::vector<std::size_t> Repeated(const std::vector<clsEvent>& events);

private:
    std::string RandomCode();
    void LookAt(const std::vector<clsEvent>& events);

    const Clock& clock_;
    Random& random_;
    std::vector<bool> used_;
    std::size_t count_ = 0;
    bool known_ = false;
};

}  // namespace kaz
