#include "ui/list/EventListFill.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "support/Names.h"

namespace kaz {

namespace {

EventViewpoint ViewpointOf(const Application& app) {
    return {app.platform.clock.Today(), app.Networked(), app.EuropeanDates()};
}

}  // namespace

EventListFill::EventListFill(Application& application)
    : app_(application),
      visible_(application.settings),
      describer_(application.layers, application.platform.locale.Data(), ViewpointOf(application)) {}

void EventListFill::AddLocal(std::int16_t category) {
    app_.log.LogEvent("Showing local events");
    if (!app_.events || app_.events->RecordCount() == 0) app_.log.LogEvent("No local events");
    Add(app_.events.get(), EventSource::Local, category);
}

void EventListFill::AddShared(std::int16_t category) {
    app_.log.LogEvent("Showing shared events");
    if (!app_.Networked() || !app_.shared) return;
    app_.log.LogEvent("Loading multiple databases from " + app_.Folder().Path());
    app_.LoadShared();
    if (app_.shared->RecordCount() == 0) app_.log.LogEvent("No events in shared databases");
    Add(app_.shared.get(), EventSource::Shared, category);
    app_.log.LogEvent("Finished displaying shared events");
}

void EventListFill::AddExpired(std::int16_t category) {
    app_.log.LogEvent("Showing expired events");
    if (!app_.expired) return;
    // Read only when it is not what the memory holds: an event that could not be saved yet must not be lost.
    const std::string file = JoinPath(app_.DataPath(), kExpiredFile);
    if (app_.expired->DBFilename() == file)
        app_.expired->CatchUp();
    else
        app_.expired->LoadDB(file);
    Add(app_.expired.get(), EventSource::Expired, category);
}

void EventListFill::Add(const clsDbXml* database, EventSource source, std::int16_t category) {
    visible_.ForEach(database, source, [&](const VisibleEvent& seen) {
        if (clsLayers::Passes(seen.event.Layer(), category))
            rows_.Add(describer_.Describe(seen), seen.event.IDCode, seen.source,
                      seen.Type(describer_.Today()));
    });
}

}  // namespace kaz
