#include "ui/main/TrayPresence.h"

#include "base/ErrorTrap.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "resources/resource.h"
#include "storage/VisibleEvents.h"
#include "support/Names.h"

#include <cstdio>
#include <utility>

namespace kaz {

namespace {

// The codes of the system's mouse messages.
enum MouseMessage {
    kMove = 0x200,
    kLeftDown = 0x201,
    kLeftUp = 0x202,
    kLeftDouble = 0x203,
    kRightDown = 0x204,
    kRightUp = 0x205,
    kRightDouble = 0x206,
};

std::string Hexadecimal(int code) {
    char text[16];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(code));
    return text;
}

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

std::string TipOf(const Application& application) {
    std::string due = DueToday(application);
    const auto& notices = application.health.Notices();
    if (notices.empty()) return due;
    const std::size_t room = kLongestTip - due.size() - kLineBreak.size();
    const std::string& text = notices.front().text;
    return Beginning(text, text.size() <= room ? room : room - kDots.size()).append(kLineBreak).append(due);
}

bool WarnsOf(const Application& application) {
    const auto& notices = application.health.Notices();
    return !notices.empty() && notices.front().weight != Health::Weight::Note;
}

}  // namespace

void TrayPresence::Show() {
    tip_ = TipOf(app_);
    warns_ = WarnsOf(app_);
    ShowAgain();
}

void TrayPresence::Renew() {
    if (IsShown() && (TipOf(app_) != tip_ || WarnsOf(app_) != warns_)) Show();
}

void TrayPresence::ShowAgain() {
    ErrorTrap trap(app_.log, "ShowIconInTray", "frmMain");
    trap([&] { window_.ShowTrayIcon(tip_, warns_); });
}

void TrayPresence::OnMouse(int mouseMessage) {
    switch (mouseMessage) {
    case kLeftDown: clicked_(); break;
    case kRightDown: window_.ShowMenu(IDR_MENU_TRAY); break;
    case kMove:
    case kLeftUp:
    case kLeftDouble:
    case kRightUp:
    case kRightDouble: break;
    default: app_.log.LogEvent("&H" + Hexadecimal(mouseMessage) + " in 'mousemove' untrapped");
    }
}

}  // namespace kaz
