#include "ui/month/MonthFill.h"

#include "platform/Clock.h"

namespace kaz {

void ReloadForMonth(Application& application) {
    clsDbXml* events = application.events.get();
    if (events && events->DatabaseChanged()) {
        events->LoadDBIfChanged(events->DBFilename());
        if (!events->DatabaseChanged()) application.mainListIsStale = true;
    }
    if (application.LoadShared()) application.mainListIsStale = true;
}

MonthGrid FillMonth(const Application& application, int month, int year, std::int16_t category) {
    const bool networked = application.Networked();
    MonthGrid grid(month, year, application.platform.clock.Today(), networked);
    const auto isShown = [category](const clsEvent& event) {
        return !event.Deleted && (category == clsLayers::kAll || event.Layer() == category);
    };
    // Through constant references: a look at the events must not cost the databases what they have noted of
    // them.
    if (const clsDbXml* local = application.events.get())
        for (const clsEvent& event : local->AllEvents())
            if (isShown(event)) grid.Place(event);
    if (!networked || !application.shared) return grid;
    const std::string owner = application.Owner();
    const clsDbXml& shared = *application.shared;
    for (const clsEvent& event : shared.AllEvents())
        if (isShown(event) && event.Owner() != owner) grid.Place(event);
    return grid;
}

}  // namespace kaz
