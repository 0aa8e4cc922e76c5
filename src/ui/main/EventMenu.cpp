#include "ui/main/EventMenu.h"

#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "resources/resource.h"

#include <utility>
#include <vector>

namespace kaz {

EventMenu::EventMenu(Window& window, Application& application, EventListView& list, ReminderClock& clock,
                     EventCommands::Editor editor, Face face)
    : window_(window),
      app_(application),
      list_(list),
      clock_(clock),
      commands_(application, std::move(editor)),
      rows_(window, application, list, commands_),
      face_(std::move(face)) {}

void EventMenu::Add() {
    if (const auto code = commands_.Add()) face_.show(code);
}

bool EventMenu::Do(const EventRef& event, const Command& command) {
    const auto code = command(event);
    if (code) face_.show(code);
    return code.has_value();
}

bool EventMenu::Ask(const EventRef& event, const Command& command) {
    return Do(event, [&](const EventRef& of) {
        const ReminderClock::Pause pause(clock_);
        return command(of);
    });
}

bool EventMenu::Edit(const EventRef& event) {
    return Ask(event, [this](const EventRef& of) { return commands_.Edit(of); });
}

void EventMenu::Edit() {
    if (const auto event = list_.Current()) Edit(*event);
}

void EventMenu::Push() {
    const std::vector<EventRef> events = list_.Selected();
    if (events.size() > 1) {
        const EventListView::Kept kept = list_.Keep();
        if (commands_.PushAll(events) && face_.show(std::nullopt)) list_.SelectAgain(kept);
    } else if (const auto event = list_.Current()) {
        Do(*event, [this](const EventRef& of) { return commands_.Push(of); });
    }
}

void EventMenu::Copy() {
    const std::string texts = list_.SelectedTexts();
    if (!texts.empty()) window_.CopyText(texts);
}

void EventMenu::Skip() {
    if (const auto event = list_.Current())
        Do(*event, [this](const EventRef& of) { return commands_.Skip(of); });
}

void EventMenu::Move() {
    if (const auto event = list_.Current())
        Ask(*event, [this](const EventRef& of) { return commands_.Move(of); });
}

void EventMenu::ShareWith() {
    if (const auto event = list_.Current())
        Ask(*event, [this](const EventRef& of) { return commands_.ShareWith(of, list_.Selected()); });
}

void EventMenu::Delete() {
    const std::vector<EventRef> events = list_.Selected();
    if (events.empty()) return;
    const auto neighbour = list_.Neighbour();
    if (!commands_.Delete(events, list_.Description(list_.SelectedRow()))) return;
    if (face_.show(std::nullopt) && neighbour) list_.SelectAgain({{*neighbour}, neighbour});
}

void EventMenu::TakeStep(UndoHistory::Way way) {
    if (!app_.undo.Next(way)) return;
    const UndoPlace place = app_.undo.Next(way)->Place();
    const UndoOutcome outcome = app_.undo.Take(way);
    if (place == UndoPlace::Categories) face_.showCategories();
    if (place == UndoPlace::Tasks || face_.show(std::nullopt)) list_.SelectEvents(outcome.events);
    if (!outcome.told.empty()) app_.platform.dialogs.Message(outcome.told);
}

void EventMenu::NameSteps() {
    const struct {
        int command;
        UndoHistory::Way way;
        const char* caption;
        const char* key;
    } commands[] = {{IDM_UNDO, UndoHistory::Way::Back, "&Undo", "\tCtrl+Z"},
                    {IDM_REDO, UndoHistory::Way::Again, "Re&do", "\tCtrl+Y"}};
    for (const auto& command : commands) {
        const UndoStep* step = app_.undo.Next(command.way);
        const std::string what = step ? " " + ReplaceAll(OneLine(step->Name()), "&", "&&") : "";
        window_.SetCommand(command.command, command.caption + what + command.key, step != nullptr);
    }
}

bool EventMenu::EditOccurrence(const OccurrenceRef& occurrence) {
    EventSource source = EventSource::Local;
    const clsEvent* event = app_.Missed().EventOf(occurrence, &source);
    const auto seen = event ? VisibleEvents(app_.settings).See(*event, source) : std::nullopt;
    if (!seen) {
        app_.platform.dialogs.Message("This event is not there any more.");
        return false;
    }
    const EventRef shown{event->IDCode, source, seen->Type(app_.platform.clock.Today())};
    const auto due = std::pair(event->DueDate(), event->DueTime());
    if (!Edit(shown)) return false;
    const clsEvent* edited = app_.events->ReadEvent(shown.code);
    return !edited || std::pair(edited->DueDate(), edited->DueTime()) != due;
}

}  // namespace kaz
