#pragma once

#include "reminders/Outcomes.h"
#include "storage/VisibleEvents.h"
#include "storage/clsDbXml.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

// Finds the events of occurrences in the databases as they are; to be made anew once these have changed. The
// first few are looked for one by one, from then on in the order of their codes: thousands may be missed.
class OccurrenceEvents {
public:
    // Null databases have no events.
    OccurrenceEvents(const clsDbXml* events, const clsDbXml* expired, const clsDbXml* shared)
        : events_{events, {}},
          expired_{expired, {}},
          shared_{shared, {}} {}

    // The event wherever it is now, and where that is; null when it has gone.
    const clsEvent* Find(const OccurrenceRef& occurrence, EventSource* source = nullptr);

private:
    struct Place {
        const clsDbXml* database;
        std::vector<const clsEvent*> byCode;  // empty until it is needed
    };
    const clsEvent* FindWithCode(Place& place, const SideKey& key) const;
    const clsEvent* FindExpiredOn(const OccurrenceRef& occurrence);

    Place events_;
    Place expired_;
    Place shared_;
    std::map<std::pair<DateValue, std::string>, const clsEvent*> expiredByDay_;  // and by their checks
    int lookups_ = 0;
};

}  // namespace kaz
