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
constexpr std::string_view kEventsUnseen = "=== Events whose file could not be read ===\r\n";
constexpr std::string_view kExpiredUnseen = "=== Expired events whose file could not be read ===\r\n";
constexpr std::string_view kBeside = "=== Beside the events ===\r\n";
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

}  // namespace

void RescuedEvents::Add(const RescuedEvents& more) {
    const auto append = [](std::vector<clsEvent>& to, const std::vector<clsEvent>& from) {
        to.insert(to.end(), from.begin(), from.end());
    };
    append(changes.stored, more.changes.stored);
    append(changes.removed, more.changes.removed);
    append(unseen, more.unseen);
}

std::string RescueFile::TextOf(const Rescued& rescued) {
    std::string text(kHead);
    text.append(kDataFolder).append(rescued.dataFolder).append(kLineBreak);
    text.append(kProgramFolder).append(rescued.programFolder).append(kLineBreak);
    AppendEvents(text, kEvents, rescued.events.changes.stored);
    AppendEvents(text, kEventsRemoved, rescued.events.changes.removed);
    AppendEvents(text, kExpired, rescued.expired.changes.stored);
    AppendEvents(text, kExpiredRemoved, rescued.expired.changes.removed);
    AppendEvents(text, kEventsUnseen, rescued.events.unseen);
    AppendEvents(text, kExpiredUnseen, rescued.expired.unseen);
    if (!rescued.beside.empty()) text.append(kBeside).append(rescued.beside).append(kLineBreak);
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
    const auto read = [&](std::string_view stored, std::string_view removed, std::string_view unseen) {
        const auto part = [&](std::string_view heading) {
            return EventXml(locale.Data(), errors).ReadAll(Part(text, heading));
        };
        return RescuedEvents{{part(stored), part(removed)}, part(unseen)};
    };
    rescued.events = read(kEvents, kEventsRemoved, kEventsUnseen);
    rescued.expired = read(kExpired, kExpiredRemoved, kExpiredUnseen);
    rescued.beside = Part(text, kBeside);
    // Settings that are cut short would be half a choice.
    if (whole) rescued.settings = Part(text, kSettings);
    for (const std::string_view line : Split(Part(text, kTasks), kLineBreak))
        if (!line.empty()) rescued.tasks.emplace_back(line);
    return rescued;
}

}  // namespace kaz
