#include "core/RescueFile.h"

#include "base/Text.h"
#include "storage/EventXml.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kHead =
    "This file keeps what KAZ could not save when it ended. The next start takes it over and deletes it\r\n"
    "once everything is saved.\r\n";
constexpr std::string_view kDataFolder = "=== Data folder ===\r\n";
constexpr std::string_view kProgramFolder = "=== Program folder ===\r\n";
constexpr std::string_view kEvents = "=== Events added or changed ===\r\n";
constexpr std::string_view kEventsRemoved = "=== Events deleted ===\r\n";
constexpr std::string_view kExpired = "=== Expired events added or changed ===\r\n";
constexpr std::string_view kExpiredRemoved = "=== Expired events deleted ===\r\n";
constexpr std::string_view kEventsUnseen = "=== Events whose file was away or damaged ===\r\n";
constexpr std::string_view kExpiredUnseen = "=== Expired events whose file was away or damaged ===\r\n";
constexpr std::string_view kSettings = "=== Settings ===\r\n";
constexpr std::string_view kTasks = "=== Tasks ===\r\n";
constexpr std::string_view kEnd = "=== End ===\r\n";

void AppendEvents(std::string& text, std::string_view heading, const std::vector<clsEvent>& events) {
    if (events.empty()) return;
    text += heading;
    for (const clsEvent& event : events) {
        EventXml::AppendBlock(text, event);
        text += kLineBreak;
    }
}

// What stands between a heading and the next one.
std::string_view Part(std::string_view text, std::string_view heading) {
    const auto begin = text.find(heading);
    if (begin == std::string_view::npos) return {};
    text.remove_prefix(begin + heading.size());
    return text.substr(0, text.find("\r\n=== "));
}

std::vector<clsEvent> EventsIn(std::string_view text, const Locale& locale, ErrorSink& errors) {
    const EventXml xml(locale.Data(), errors);
    std::vector<clsEvent> events;
    for (auto end = text.find(EventXml::kBlockEnd); end != std::string_view::npos;
         end = text.find(EventXml::kBlockEnd)) {
        const std::string_view piece = text.substr(0, end);
        if (EventXml::HoldsBlock(piece)) xml.ReadBySearch(piece, events.emplace_back());
        text.remove_prefix(end + EventXml::kBlockEnd.size());
    }
    return events;
}

}  // namespace

std::string RescueFile::TextOf(const Rescued& rescued) {
    std::string text(kHead);
    text.append(kDataFolder).append(rescued.dataFolder).append(kLineBreak);
    text.append(kProgramFolder).append(rescued.programFolder).append(kLineBreak);
    AppendEvents(text, kEvents, rescued.events.stored);
    AppendEvents(text, kEventsRemoved, rescued.events.removed);
    AppendEvents(text, kExpired, rescued.expired.stored);
    AppendEvents(text, kExpiredRemoved, rescued.expired.removed);
    AppendEvents(text, kEventsUnseen, rescued.eventsUnseen);
    AppendEvents(text, kExpiredUnseen, rescued.expiredUnseen);
    if (!rescued.settings.empty()) text.append(kSettings).append(rescued.settings).append(kLineBreak);
    if (!rescued.tasks.empty()) text += kTasks;
    for (const std::string& task : rescued.tasks)
        text.append(task).append(kLineBreak);
    return text.append(kLineBreak).append(kEnd);
}

Rescued RescueFile::Read(std::string_view text, const Locale& locale, ErrorSink& errors, bool& whole) {
    whole = text.starts_with(kHead) && text.ends_with(kEnd);
    Rescued rescued;
    rescued.dataFolder = Part(text, kDataFolder);
    rescued.programFolder = Part(text, kProgramFolder);
    rescued.events = {EventsIn(Part(text, kEvents), locale, errors),
                      EventsIn(Part(text, kEventsRemoved), locale, errors)};
    rescued.expired = {EventsIn(Part(text, kExpired), locale, errors),
                       EventsIn(Part(text, kExpiredRemoved), locale, errors)};
    rescued.eventsUnseen = EventsIn(Part(text, kEventsUnseen), locale, errors);
    rescued.expiredUnseen = EventsIn(Part(text, kExpiredUnseen), locale, errors);
    // Settings that are cut short would be half a choice.
    if (whole) rescued.settings = Part(text, kSettings);
    for (const std::string_view line : Split(Part(text, kTasks), kLineBreak))
        if (!line.empty()) rescued.tasks.emplace_back(line);
    return rescued;
}

}  // namespace kaz
