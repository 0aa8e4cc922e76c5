#include "commands/EventStep.h"

#include "core/NamedEvents.h"
#include "storage/EventDigest.h"
#include "storage/EventReplay.h"
#include "storage/WholeTexts.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

const clsEvent& SubjectOf(const ChangedEvent& change) {
    return change.after ? *change.after : *change.before;
}

std::vector<clsEvent> SubjectsOf(const std::vector<ChangedEvent>& changes, EventStep::Of of) {
    // Several are only counted.
    if (changes.size() > 1 && of == EventStep::Of::Each) return std::vector<clsEvent>(changes.size());
    return {SubjectOf(changes.front())};
}

bool IsNone(const ChangedEvent& change) {
    return change.before && change.after && change.wasExpired == change.isExpired &&
           EventDigest(*change.before) == EventDigest(*change.after) &&
           change.before->Extras() == change.after->Extras() && HaveSameTexts(*change.before, *change.after);
}

std::size_t SizeOf(const std::vector<ChangedEvent>& changes) {
    std::size_t size = changes.capacity() * sizeof(ChangedEvent);
    for (const ChangedEvent& change : changes)
        for (const auto* event : {&change.before, &change.after})
            if (*event) size += (*event)->Desc().size() + (*event)->ShareNames.size();
    return size;
}

}  // namespace

std::string EventStep::LeftText(const std::vector<clsEvent>& left) {
    return left.empty() ? std::string()
                        : NameOf(left) + (left.size() == 1 ? " has" : " have") +
                              " been changed or deleted since then, and " +
                              (left.size() == 1 ? "stays as it is now." : "stay as they are now.");
}

void EventStep::Record(Application& app, std::string_view what, std::vector<ChangedEvent> changes, Of of) {
    std::erase_if(changes, IsNone);
    if (changes.empty()) return;
    app.journal.Write(app.Owner(), what, changes);
    app.DropLeftOut();
    std::string name = std::string(what) + " of " + NameOf(SubjectsOf(changes, of));
    for (ChangedEvent& change : changes)
        change.Reverse();
    std::reverse(changes.begin(), changes.end());
    app.undo.Add(std::make_unique<EventStep>(app, std::string(what), std::move(name), std::move(changes)));
}

EventStep::EventStep(Application& app, std::string what, std::string name, std::vector<ChangedEvent> changes)
    : UndoStep(UndoPlace::Events, std::move(name)),
      app_(app),
      what_(std::move(what)),
      changes_(std::move(changes)),
      size_(SizeOf(changes_)) {}

UndoOutcome EventStep::Turn() {
    EventReplay::Result result = EventReplay(*app_.events, *app_.expired, app_.Storage()).Run(changes_);
    app_.outcomes.Save();  // what stands beside the events has come back with them
    app_.DropLeftOut();
    app_.journal.Write(app_.Owner(), (isUndone_ ? "redo of " : "undo of ") + what_, result.done);
    isUndone_ = !isUndone_;
    UndoOutcome outcome;
    outcome.changed = !result.done.empty();
    outcome.told = LeftText(result.left);
    outcome.newCodes = std::move(result.newCodes);
    for (ChangedEvent& change : result.done) {
        if (change.after) outcome.events.push_back({change.after->IDCode, change.isExpired});
        change.Reverse();
    }
    std::reverse(result.done.begin(), result.done.end());
    changes_ = std::move(result.done);
    size_ = SizeOf(changes_);
    return outcome;
}

void EventStep::Recode(const std::string& before, const std::string& now) {
    for (ChangedEvent& change : changes_)
        for (auto* event : {&change.before, &change.after})
            if (*event && (*event)->IDCode == before) (*event)->IDCode = now;
}

}  // namespace kaz
