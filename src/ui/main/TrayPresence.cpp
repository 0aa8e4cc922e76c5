#include "ui/main/TrayPresence.h"

#include "base/ErrorTrap.h"
#include "base/Text.h"
#include "base/Utf8.h"
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

int IconOf(const Health::Notice& notice) {
    switch (notice.sign) {
    case Health::Sign::NotSaved: return IDI_KAZUNSAVED;
    case Health::Sign::FolderAway: return IDI_KAZAWAY;
    case Health::Sign::Missed: return IDI_KAZMISSED;
    case Health::Sign::Quiet: return IDI_KAZQUIET;
    case Health::Sign::Silent: return IDI_KAZSILENT;
    case Health::Sign::None: break;
    }
    return notice.weight == Health::Weight::Note ? IDI_KAZ : IDI_KAZWARNING;
}

// The heaviest notice that shows by the icon, among equals one with a sign of its own; null when all is well.
const Health::Notice* LightOf(const Health& health) {
    const Health::Notice* light = nullptr;
    for (const Health::Notice& notice : health.Notices()) {
        if (light && notice.weight != light->weight) break;
        if (notice.sign != Health::Sign::None) return &notice;
        if (!light && IconOf(notice) != IDI_KAZ) light = &notice;
    }
    return light || health.Notices().empty() ? light : &health.Notices().front();
}

std::string TipOf(const Application& application) {
    std::string due = DueToday(application);
    const Health::Notice* light = LightOf(application.health);
    if (!light) return due;
    const std::size_t room = kLongestTip - Utf16Length(due) - kLineBreak.size();
    const std::string& text = light->text;
    return Beginning(text, Utf16Length(text) <= room ? room : room - kDots.size())
        .append(kLineBreak)
        .append(due);
}

int IconOf(const Application& application) {
    const Health::Notice* light = LightOf(application.health);
    return light ? IconOf(*light) : IDI_KAZ;
}

}  // namespace

void TrayPresence::Show() {
    tip_ = TipOf(app_);
    icon_ = IconOf(app_);
    ShowAgain();
}

void TrayPresence::Renew() {
    if (IsShown() && (TipOf(app_) != tip_ || IconOf(app_) != icon_)) Show();
}

void TrayPresence::SayWhereItIs() {
    constexpr std::string_view kSaid = "SaidWhereItIs";
    if (!IsShown() || app_.settings.Flag(kSaid)) return;
    app_.settings.StoreSetting(kSaid, true);
    window_.ShowBalloon(
        "KAZ goes on in the tray",
        "It reminds you from here. A click opens your list again; Quit in the right click's menu "
        "ends it.");
}

void TrayPresence::ShowAgain() {
    ErrorTrap trap(app_.log, "ShowIconInTray", "frmMain");
    trap([&] { window_.ShowTrayIcon(tip_, icon_); });
}

void TrayPresence::OnMouse(int mouseMessage) {
    switch (mouseMessage) {
    case kLeftDown: clicked_(); break;
    case kRightDown: menu_(); break;
    case kMove:
    case kLeftUp:
    case kLeftDouble:
    case kRightUp:
    case kRightDouble: break;
    default: app_.log.LogEvent("&H" + Hexadecimal(mouseMessage) + " in 'mousemove' untrapped");
    }
}

}  // namespace kaz
