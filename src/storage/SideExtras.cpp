#include "storage/SideExtras.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "storage/WholeTexts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <unordered_map>

namespace kaz {

namespace {

constexpr std::string_view kSkip = "skip";
constexpr std::string_view kUntil = "until";
constexpr std::string_view kTimes = "times";
constexpr std::string_view kWarn = "warn";
constexpr std::string_view kAlways = "always";

constexpr int kMostTimes = 10'000;
constexpr int kLongestWarning = 366 * 24 * 60;  // minutes
constexpr std::size_t kMostWarnings = 10;

std::optional<int> Number(std::string_view text, int most) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    return whole && number >= 0 && number <= most ? std::optional(number) : std::nullopt;
}

// "120" for minutes; "1 18:00" for a day before and a time.
std::string WarningText(const SecondWarning& warning) {
    if (!warning.time) return std::to_string(warning.minutes);
    return std::to_string(warning.daysBefore) + SideTime(*warning.time).substr(10);
}

std::optional<SecondWarning> WarningIn(std::string_view text) {
    const auto blank = text.find(' ');
    const auto number = Number(text.substr(0, blank), kLongestWarning);
    if (!number) return std::nullopt;
    if (blank == std::string_view::npos) return SecondWarning{*number, 0, std::nullopt};
    const auto moment = SideMoment("2000-01-01" + std::string(text.substr(blank)));
    if (!moment || *number > kLongestWarning / (24 * 60)) return std::nullopt;
    return SecondWarning{0, *number, moment->TimeOnly()};
}

// What is out of range or has no meaning for this version changes nothing.
void Take(EventExtras& extras, const SideLine& line) {
    if (line.verb == kAlways) extras.always = true;
    if (line.verb == kSkip && line.day) extras.Skip(*line.day);
    if (line.verb == kUntil || line.verb == kTimes) {
        const auto times = line.verb == kTimes ? Number(line.argument, kMostTimes) : 0;
        // Of two ends the later one: one reminder too many, not one too few.
        if (!line.day || !times || (extras.lastDay && *line.day <= *extras.lastDay)) return;
        extras.lastDay = line.day->DateOnly();
        extras.times = *times;
    }
    if (line.verb == kWarn && extras.warnings.size() < kMostWarnings)
        if (const auto warning = WarningIn(line.argument)) extras.warnings.push_back(*warning);
}

}  // namespace

bool IsExtra(const SideLine& line) {
    return IsWholeText(line) || std::ranges::any_of(std::array{kSkip, kUntil, kTimes, kWarn, kAlways},
                                                    [&](std::string_view verb) { return line.verb == verb; });
}

std::vector<SideLine> ExtraLines(const clsEvent& event, std::string_view file) {
    const EventExtras& extras = event.Extras();
    if (extras.Empty() && FitsFile(event)) return {};
    const SideKey key{std::string(file), event.IDCode, CheckOf(event)};
    std::vector<SideLine> lines = WholeTextLines(event, key);
    const auto add = [&](std::string_view verb, std::optional<DateValue> day, std::string argument) {
        lines.push_back({std::string(verb), key, day, std::move(argument)});
    };
    for (const std::int32_t day : extras.skipped)
        add(kSkip, DateValue(day), "");
    if (extras.lastDay && extras.times > 0)
        add(kTimes, extras.lastDay, std::to_string(extras.times));
    else if (extras.lastDay)
        add(kUntil, extras.lastDay, "");
    for (const SecondWarning& warning : extras.warnings)
        add(kWarn, std::nullopt, WarningText(warning));
    if (extras.always) add(kAlways, std::nullopt, "");
    return lines;
}

void GiveExtras(std::vector<clsEvent>& events, const SideLines& lines, std::string_view file,
                const std::function<void(const SideLine& line)>& left) {
    std::unordered_map<std::string_view, std::vector<const SideLine*>> byCode;
    for (const SideLine& line : lines)
        if (line.key.file == file && IsExtra(line)) byCode[line.key.code].push_back(&line);
    for (clsEvent& event : events) {
        const auto found = byCode.empty() ? byCode.end() : byCode.find(event.IDCode);
        if (found == byCode.end()) {
            if (!event.Extras().Empty()) event.Extras({});
            TakeWholeTexts(event, {});
            continue;
        }
        const std::string check = CheckOf(event);
        EventExtras extras;
        std::vector<const SideLine*> texts;
        for (const SideLine* line : found->second)
            if (IsWholeText(*line))
                texts.push_back(line);
            else if (line->key.check == check)
                Take(extras, *line);
        event.Extras(extras);
        if (left)
            for (const SideLine* line : texts)
                if (WholeTextFor(event, *line) == WholeText::Left) left(*line);
        TakeWholeTexts(event, texts);
    }
}

}  // namespace kaz
