#include "commands/WhyNot.h"

#include "platform/Clock.h"

namespace kaz {

namespace {

constexpr const char* kForeign = "it belongs to somebody else";
constexpr const char* kExpired = "it has expired; Edit gives it another date";

std::string WhyNoDay(const EventRef& event, const Application& application) {
    if (event.source == EventSource::Expired) return kExpired;
    const clsEvent* found = application.events ? application.events->ReadEvent(event.code) : nullptr;
    if (!found) return {};
    if (!found->Recurring()) return "it is shown once";
    return found->DueDate() < application.platform.clock.Today() ? "its day has passed" : "";
}

}  // namespace

std::string WhyNot(EventCommand command, const EventRef& event, const Application& application) {
    if (event.IsForeign()) return kForeign;
    switch (command) {
    case EventCommand::Push: return event.type == EventType::Past ? kExpired : "";
    case EventCommand::Skip:
    case EventCommand::Move: return WhyNoDay(event, application);
    case EventCommand::Share: return application.Networked() ? "" : "sharing is off in the settings";
    default: return {};
    }
}

}  // namespace kaz
