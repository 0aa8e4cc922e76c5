#include "ui/list/EventListFill.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "support/Names.h"

namespace kaz {

namespace {

bool Passes(const clsEvent& event, std::int16_t category) {
    return category == clsLayers::kAll || event.Layer() == category;
}

EventViewpoint ViewpointOf(const Application& app) {
    return {app.platform.clock.Today(), app.Owner(), app.Networked(), app.EuropeanDates()};
}

}  // namespace

EventListFill::EventListFill(Application& application)
    : app_(application),
      viewpoint_(ViewpointOf(application)),
      describer_(application.layers, application.platform.locale.Data(), viewpoint_) {}

void EventListFill::AddLocal(std::int16_t category) {
    app_.log.LogEvent("Showing local events");
    if (!app_.events || app_.events->AllEvents().empty()) {
        app_.log.LogEvent("No local events");
        return;
    }
    for (clsEvent& event : app_.events->AllEvents())
        if (!event.Deleted && Passes(event, category)) Add(event, EventSource::Local);
}

void EventListFill::AddShared(std::int16_t category) {
    app_.log.LogEvent("Showing shared events");
    if (!viewpoint_.networked || !app_.shared) return;
    app_.log.LogEvent("Loading multiple databases from " + app_.Folder().Path());
    app_.LoadShared();
    if (app_.shared->AllEvents().empty()) app_.log.LogEvent("No events in shared databases");
    for (clsEvent& event : app_.shared->AllEvents()) {
        // The user's own shared events are in the local list already.
        if (event.Deleted || event.Owner() == viewpoint_.user || !Passes(event, category)) continue;
        event.CalcDaysLeft(viewpoint_.today);
        Add(event, EventSource::Shared);
    }
    app_.log.LogEvent("Finished displaying shared events");
}

void EventListFill::AddExpired(std::int16_t category) {
    app_.log.LogEvent("Showing expired events");
    if (!app_.expired) return;
    // Read only when it is not what the memory holds: an event that could not be saved yet must not be lost.
    const std::string file = JoinPath(app_.DataPath(), kExpiredFile);
    if (app_.expired->DBFilename() != file || app_.expired->DatabaseChanged()) app_.expired->LoadDB(file);
    for (clsEvent& event : app_.expired->AllEvents())
        if (!event.Deleted && Passes(event, category)) Add(event, EventSource::Expired);
}

void EventListFill::Add(clsEvent& event, EventSource source) {
    if (event.Layer() == clsLayers::kShared) event.Layer(1);
    rows_.Add(describer_.Describe(event), event.IDCode, source);
}

}  // namespace kaz
