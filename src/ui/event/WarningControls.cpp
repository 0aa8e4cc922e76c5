#include "ui/event/WarningControls.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "model/AlarmTime.h"
#include "resources/resource.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <cstdint>
#include <string>

namespace kaz {

namespace {

enum Kind { kNone, kMinutes, kHours, kDays, kAtTime };

struct Unit {
    const char* name;
    std::int32_t minutes;
    std::int16_t most;  // a year and a day
};
constexpr Unit kUnits[] = {{"(none)", 0, 0},
                           {"minutes before", 1, INT16_MAX},
                           {"hours before", 60, 366 * 24},
                           {"days before", 24 * 60, 366},
                           {"days before, at", 0, 366}};

Kind KindOf(const SecondWarning& warning) {
    if (warning.time) return kAtTime;
    for (const Kind kind : {kDays, kHours})
        if (warning.minutes > 0 && warning.minutes % kUnits[kind].minutes == 0) return kind;
    return kMinutes;
}

}  // namespace

WarningControls::WarningControls(Window& window, const LocaleData& locale, int row)
    : locale_(locale),
      txtNumber(window, IDC_txtWarningNumber + row),
      cmbKind(window, IDC_cmbWarningKind + row),
      txtTime(window, IDC_txtWarningTime + row) {}

void WarningControls::Show(const std::optional<SecondWarning>& warning) {
    std::vector<std::string> names;
    for (const Unit& unit : kUnits)
        names.emplace_back(unit.name);
    cmbKind.Items(names);
    const Kind kind = warning ? KindOf(*warning) : kNone;
    cmbKind.Select(kind);
    if (kind == kAtTime) {
        txtNumber.Text(std::to_string(warning->daysBefore));
        txtTime.Text(FormatDate(*warning->time, "HH:MM", locale_));
    } else if (kind != kNone) {
        txtNumber.Text(std::to_string(warning->minutes / kUnits[kind].minutes));
    }
    FollowKind();
}

std::optional<SecondWarning> WarningControls::Take() const {
    const int kind = cmbKind.Selected();
    if (kind <= kNone || kind > kAtTime) return std::nullopt;
    const Unit& unit = kUnits[kind];
    const std::string range = "Please enter a whole number from 0 to " + std::to_string(unit.most);
    const std::int16_t number = TypedNumber(txtNumber, 0, unit.most, {range, range});
    if (kind != kAtTime) return SecondWarning{number * unit.minutes, 0, std::nullopt};
    const std::string text = TypedText(txtTime);
    auto time = TypedTime(text);
    if (!time) time = TimeInShort(text);
    if (!time) throw FieldFault(txtTime.Id(), "Please specify a time in the range of 00:00 to 23:59");
    return SecondWarning{0, number, *time};
}

void WarningControls::FollowKind() {
    const int kind = cmbKind.Selected();
    txtNumber.Enabled(kind > kNone);
    txtTime.Enabled(kind == kAtTime);
    if (kind > kNone && txtNumber.Text().empty()) txtNumber.Text("1");
    if (kind == kAtTime && txtTime.Text().empty()) txtTime.Text("18:00");
}

void WarningControls::CompleteTime() {
    try {
        if (const auto time = TimeInShort(TypedText(txtTime)))
            txtTime.Text(FormatDate(*time, "HH:MM", locale_));
    } catch (const FieldFault&) {
        // Saving will tell.
    }
}

}  // namespace kaz
