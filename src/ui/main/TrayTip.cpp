#include "ui/main/TrayTip.h"

#include "base/Text.h"
#include "platform/Clock.h"
#include "support/Names.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::size_t kLongestTip = 127;
constexpr std::string_view kDots = "...";

template <class IsMeant>
std::ptrdiff_t Count(const clsDbXml* database, DateValue today, IsMeant isMeant) {
    if (!database) return 0;
    const std::vector<clsEvent>& events = database->AllEvents();
    return std::count_if(events.begin(), events.end(), [&](const clsEvent& event) {
        return !event.Deleted && event.DueDate() == today && isMeant(event);
    });
}

std::string DueToday(const Application& application) {
    const DateValue today = application.platform.clock.Today();
    std::ptrdiff_t count = Count(application.events.get(), today, [](const clsEvent&) { return true; });
    if (application.Networked())
        count += Count(application.shared.get(), today, [owner = application.Owner()](const clsEvent& event) {
            return event.Owner() != owner;
        });
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
