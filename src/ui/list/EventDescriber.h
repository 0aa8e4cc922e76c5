#pragma once

#include "base/LocaleData.h"
#include "storage/VisibleEvents.h"
#include "storage/clsLayers.h"
#include "ui/list/EventRows.h"

#include <string>

namespace kaz {

// What the texts of an event depend on beside the event itself.
struct EventViewpoint {
    DateValue today;  // date only
    bool networked = false;
    bool dayBeforeMonth = false;
};

// Says of an event what the columns of the main list show.
class EventDescriber {
public:
    EventDescriber(const clsLayers& layers, const LocaleData& locale, EventViewpoint viewpoint)
        : layers_(layers),
          locale_(locale),
          viewpoint_(viewpoint) {}

    DateValue Today() const { return viewpoint_.today; }
    // The cells are valid until the next call.
    const EventCells& Describe(const VisibleEvent& seen);

private:
    void DescribeDate(DateValue due);
    void DescribeSharing(const clsEvent& event);

    const clsLayers& layers_;
    const LocaleData& locale_;
    EventViewpoint viewpoint_;
    EventCells
        cells_;  // one set for all events, so that a long list is described without an allocation for each
};

}  // namespace kaz
