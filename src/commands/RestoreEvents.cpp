#include "commands/RestoreEvents.h"

#include "base/DateText.h"
#include "commands/EventStep.h"
#include "core/KeptCopies.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "storage/EventReplay.h"
#include "support/Names.h"

#include <utility>

namespace kaz {

namespace {

bool KeepPresent(Application& app) {
    const KeptCopies copies(app.platform.files, app.log, JoinPath(app.runtimePath, kBackupFolder),
                            "before a restore");
    const std::string time =
        FormatDate(app.platform.clock.Now(), "YYYY-MM-DD HH.NN.SS", app.platform.locale.Data());
    return copies.Keep(app.events->DBFilename(), time) && copies.Keep(app.expired->DBFilename(), time);
}

// Its day takes it to the expired events anyway.
bool HasPassed(const clsEvent& event, DateValue today) {
    return !event.Recurring() && event.DueDate() < today;
}

}  // namespace

RestoreResult RestoreEvents(Application& app, const std::vector<BackedUpEvent>& events, bool replace) {
    const DateValue today = app.platform.clock.Today();
    std::vector<ChangedEvent> changes;
    for (const BackedUpEvent& event : events) {
        if (event.state == BackedUpEvent::State::Missing)
            changes.push_back({{}, event.event, false, event.expired || HasPassed(event.event, today)});
        else if (event.state == BackedUpEvent::State::Different && replace)
            changes.push_back(
                {event.now, event.event, event.nowExpired, event.expired || HasPassed(event.event, today)});
    }
    RestoreResult result;
    result.kept = KeepPresent(app);
    if (!result.kept || changes.empty()) return result;
    EventReplay::Result done = EventReplay(*app.events, *app.expired, app.Storage()).Run(std::move(changes));
    app.outcomes.Save();
    result.restored = done.done.size();
    result.told = EventStep::LeftText(done.left);
    EventStep::Record(app, "restoring", std::move(done.done));
    return result;
}

}  // namespace kaz
