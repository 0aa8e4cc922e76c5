#include "core/RescueFile.h"

#include "base/CodePage.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "storage/EventXml.h"
#include "storage/SideExtras.h"

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

// What the blocks above have no room for; it counts as added, since the file that has it may be out of reach.
std::string BesideOf(const Rescued& rescued) {
    std::string text;
    for (const RescuedEvents* events : {&rescued.events, &rescued.expired})
        for (const std::vector<clsEvent>* some : {&events->changes.stored, &events->unseen})
            for (const clsEvent& event : *some)
                for (const SideLine& line : ExtraLines(event, kOwnEvents))
                    text.append("+").append(line.Text()).append(kLineBreak);
    return text;
}

// What stands between a heading and the next one.
std::string_view Part(std::string_view text, std::string_view heading) {
    const auto begin = text.find(heading);
    if (begin == std::string_view::npos) return {};
    text.remove_prefix(begin + heading.size());
    return text.substr(0, text.find("\r\n=== "));
}

// Texts without a form of their own; an earlier version wrote bytes of the code page.
std::string Words(std::string_view text) {
    return IsUtf8(text) ? std::string(text) : CodePage::OfSystem().Decode(text);
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
    if (const std::string beside = rescued.beside + BesideOf(rescued); !beside.empty())
        text.append(kBeside).append(beside).append(kLineBreak);
    if (!rescued.settings.empty()) text.append(kSettings).append(rescued.settings).append(kLineBreak);
    if (!rescued.tasks.empty()) text += kTasks;
    for (const std::string& task : rescued.tasks)
        text.append(task).append(kLineBreak);
    return text.append(kLineBreak).append(kEnd);
}

Rescued RescueFile::Read(std::string_view text, const Locale& locale, ErrorSink& errors, bool& whole) {
    whole = text.starts_with(kHead) && text.ends_with(kEnd);
    Rescued rescued;
    rescued.dataFolder = Words(Part(text, kDataFolder));
    rescued.programFolder = Words(Part(text, kProgramFolder));
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
    if (whole) rescued.settings = Words(Part(text, kSettings));
    const std::string tasks = Words(Part(text, kTasks));
    for (const std::string_view line : Split(tasks, kLineBreak))
        if (!line.empty()) rescued.tasks.emplace_back(line);
    return rescued;
}

}  // namespace kaz
