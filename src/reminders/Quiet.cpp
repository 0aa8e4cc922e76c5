#include "reminders/Quiet.h"

#include "base/DateText.h"
#include "model/AlarmTime.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Screen.h"

#include <algorithm>
#include <array>

namespace kaz {

namespace {

constexpr std::string_view kChosenSince = "QuietSince";
constexpr std::string_view kChosenUntil = "QuietUntil";
constexpr std::string_view kHoursOver = "QuietHoursOver";  // the user has ended the hours of before that
constexpr std::string_view kHoursFrom = "QuietFrom";
constexpr std::string_view kHoursTo = "QuietTo";
constexpr std::string_view kFullScreen = "QuietFullScreen";
constexpr const char* kPattern = "YYYY-MM-DD HH:NN:SS";
// Longer than any film: after that it is a screen that somebody has left so.
constexpr int kLongestScreen = 4 * 60;  // minutes

}  // namespace

Quiet::State Quiet::Look() {
    const DateValue now = platform_.clock.Now();
    if (lastLook_ && now < lastLook_->PlusMinutes(-1)) {
        // By how much is not known, so what was to end at some time could last as long again.
        if (Moment(kChosenUntil)) Store(kChosenUntil, {}), Save();
        screenIsOver_ = screenSince_.has_value();
    }
    lastLook_ = now;
    const auto chosen = ChosenEnd(now);
    const auto hours = HoursEnd(now);
    const auto screen = ScreenEnd(now);
    State state;
    for (const auto& end : {chosen, hours, screen})
        if (end) state = {true, std::max(state.until, *end), false};
    state.isByScreen = screen && !chosen && !hours;
    return state;
}

void Quiet::Choose() {
    const DateValue now = platform_.clock.Now();
    Store(kChosenSince, now);
    Store(kChosenUntil, now.PlusMinutes(kChosenMinutes));
    Save();
}

void Quiet::End() {
    Store(kChosenSince, {});
    Store(kChosenUntil, {});
    if (const auto hours = HoursEnd(platform_.clock.Now())) Store(kHoursOver, hours);
    screenIsOver_ = screenSince_.has_value();
    Save();
}

// What the file says is believed only as far as Choose could have written it.
std::optional<DateValue> Quiet::ChosenEnd(DateValue now) {
    const auto since = Moment(kChosenSince);
    const auto until = Moment(kChosenUntil);
    if (!since || !until) return std::nullopt;
    if (*since <= now && now < *until && *until <= since->PlusMinutes(kChosenMinutes)) return until;
    Store(kChosenSince, {});
    Store(kChosenUntil, {});
    Save();
    return std::nullopt;
}

std::optional<DateValue> Quiet::HoursEnd(DateValue now) const {
    const auto from = TypedTime(settings_.TextOr(kHoursFrom, ""));
    const auto to = TypedTime(settings_.TextOr(kHoursTo, ""));
    if (!from || !to || *from == *to) return std::nullopt;
    const DateValue time = now.TimeOnly();
    const bool isOverMidnight = *to < *from;
    const bool isOn = isOverMidnight ? time >= *from || time < *to : time >= *from && time < *to;
    if (!isOn) return std::nullopt;
    const DateValue end(now.Day() + (isOverMidnight && time >= *from ? 1 : 0), to->SecondOfDay());
    const auto over = Moment(kHoursOver);
    if (over && now < *over && *over <= end) return std::nullopt;
    return end;
}

std::optional<DateValue> Quiet::ScreenEnd(DateValue now) {
    if (!settings_.Flag(kFullScreen) || !platform_.screen.IsTaken()) {
        screenSince_.reset();
        screenIsOver_ = false;
        return std::nullopt;
    }
    if (!screenSince_) screenSince_ = now;
    const DateValue end = screenSince_->PlusMinutes(kLongestScreen);
    if (now >= end) screenIsOver_ = true;
    return screenIsOver_ ? std::nullopt : std::optional(end);
}

std::optional<DateValue> Quiet::Moment(std::string_view name) const {
    const std::string text = settings_.TextOr(name, "");
    if (text.empty()) return std::nullopt;
    return RecogniseDate(text, platform_.locale.Data());
}

void Quiet::Store(std::string_view name, std::optional<DateValue> moment) {
    if (moment)
        settings_.StoreSetting(name, FormatDate(*moment, kPattern, platform_.locale.Data()));
    else
        settings_.DeleteSetting(name);
}

void Quiet::Save() { settings_.SaveOnly(settingsFile_, std::array{kChosenSince, kChosenUntil, kHoursOver}); }

}  // namespace kaz
