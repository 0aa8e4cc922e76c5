#include "ui/main/TrayTip.h"

#include "base/Text.h"
#include "platform/Clock.h"
#include "storage/VisibleEvents.h"
#include "support/Names.h"

namespace kaz {

namespace {

constexpr std::size_t kLongestTip = 127;
constexpr std::string_view kDots = "...";

std::string DueToday(const Application& application) {
    const DateValue today = application.platform.clock.Today();
    const VisibleEvents visible(application.settings);
    int count = 0;
    const auto look = [&](const VisibleEvent& seen) { count += seen.due == today ? 1 : 0; };
    visible.ForEach(application.events.get(), EventSource::Local, look);
    visible.ForEach(application.shared.get(), EventSource::Shared, look);
    const std::string name(kApplicationName);
    if (count == 0) return name + " - nothing due today";
    return name + " - " + std::to_string(count) + (count == 1 ? " event" : " events") + " due today";
}

}  // namespace

std::string TrayTip(const Application& application) {
    std::string due = DueToday(application);
    const auto& notices = application.health.Notices();
    if (notices.empty()) return due;
    const std::size_t room = kLongestTip - due.size() - kLineBreak.size();
    std::string text = notices.front().text;
    if (text.size() > room) text = text.substr(0, room - kDots.size()).append(kDots);
    return text.append(kLineBreak).append(due);
}

bool TrayWarns(const Application& application) {
    const auto& notices = application.health.Notices();
    return !notices.empty() && notices.front().weight != Health::Weight::Note;
}

}  // namespace kaz
