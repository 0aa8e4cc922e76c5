#include "reminders/Outcomes.h"

#include "model/AlarmTime.h"
#include "platform/Files.h"
#include "storage/SharedFolder.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kAnswered = "answered";
constexpr std::string_view kOpen = "open";
constexpr std::string_view kSleep = "sleep";
constexpr std::string_view kAwait = "await";
constexpr std::string_view kKnown = "known";
constexpr std::string_view kSkip = "skip";

constexpr std::string_view kFrom = "from ";
constexpr std::string_view kMailed = "mailed";
constexpr std::size_t kDayLength = 10;
constexpr std::size_t kTimeLength = 16;

// Two weeks are more than a clock goes back, and more than two computers on one folder are apart for.
constexpr int kKeptDays = 14;
constexpr int kMostCounted = 100'000;
constexpr std::size_t kMostEntries = 20;  // of one event

SideLine Line(std::string_view verb, const OccurrenceRef& occurrence, std::string argument) {
    return {std::string(verb), occurrence.key, occurrence.day.DateOnly(), std::move(argument)};
}

// Takes a day, or a time when that is longer, from the beginning of a text, with the blank behind it.
std::optional<DateValue> TakeMoment(std::string_view& text, std::size_t length) {
    const auto moment = SideMoment(text.substr(0, length));
    if (moment) text.remove_prefix(std::min(text.size(), length + 1));
    return moment;
}

// "3 2026-12-20 2026-12-25 18:30", of another user's with its text behind.
std::string OpenText(const Outcomes::Open& open) {
    std::string text =
        std::to_string(open.count) + " " + SideDay(open.first) + " " + SideTime(open.last.moment);
    if (open.isMailed) text.append(" ").append(kMailed);
    return open.text.empty() ? text : text.append(" ").append(open.text);
}

std::optional<Outcomes::Open> OpenIn(const SideLine& line) {
    if (!line.day) return std::nullopt;
    Outcomes::Open open{{line.key, *line.day, *line.day}, *line.day, 1, ""};
    std::string_view text = line.argument;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), open.count);
    if (error != std::errc{} || open.count < 1 || open.count > kMostCounted) open.count = 1;
    text.remove_prefix(std::min(text.size(), text.find(' ')));
    text.remove_prefix(std::min(text.size(), std::size_t{1}));
    open.first = std::min(TakeMoment(text, kDayLength).value_or(*line.day), *line.day);
    if (const auto moment = TakeMoment(text, kTimeLength)) open.last.moment = *moment;
    open.isMailed = line.key.file == kOwnEvents && text == kMailed;
    if (!open.isMailed) open.text = text;
    return open;
}

// "2026-12-25 18:40 2026-12-25 18:30": until when, and from which moment.
std::optional<Outcomes::Asleep> AsleepIn(const SideLine& line) {
    std::string_view text = line.argument;
    const auto until = TakeMoment(text, kTimeLength);
    if (!line.day || !until) return std::nullopt;
    return Outcomes::Asleep{{line.key, *line.day, SideMoment(text).value_or(*line.day)}, *until};
}

// All entries with that verb, in their order.
template <class Use>
void ForEach(const SideFile& side, std::string_view verb, Use use) {
    const SideFile::Lines& lines = side.All();
    for (auto line = lines.lower_bound({std::string(verb), {}, std::nullopt, ""});
         line != lines.end() && line->verb == verb; ++line)
        use(*line);
}

}  // namespace

SideKey KeyOf(const clsDbXml& database, const clsEvent& event) {
    const std::string source = database.SourceOf(event);
    return {source.empty() ? std::string(kOwnEvents) : WithExtension(SharedFolder::NameOf(source), ""),
            event.IDCode, CheckOf(event)};
}

DateValue MomentOf(const clsEvent& event, DateValue day) {
    return AlarmMinute(event, day).value_or(day.DateOnly());
}

OccurrenceRef OwnOccurrence(const clsEvent& event, DateValue day) {
    return {{std::string(kOwnEvents), event.IDCode, CheckOf(event)}, day, MomentOf(event, day)};
}

Outcomes::Answers::Answers(const SideFile& side, const SideKey& key) {
    for (const SideLine& line : side.Of(kAnswered, key)) {
        std::string_view text = line.argument;
        if (!line.day) continue;
        const DateValue until = TakeMoment(text, kTimeLength).value_or(*line.day);
        if (text.starts_with(kFrom)) text.remove_prefix(kFrom.size());
        const DateValue first = SideMoment(text).value_or(*line.day);
        answers_.push_back({{first, *line.day}, until});
    }
}

bool Outcomes::Answers::Has(DateValue day, DateValue moment) const {
    return std::any_of(answers_.begin(), answers_.end(), [&](const Answer& answer) {
        const auto& [first, last] = answer.days;
        return first <= day && (day < last || (day == last && moment <= answer.until));
    });
}

void Outcomes::RemoveOpen(const OccurrenceRef& last) {
    for (const SideLine& line : side_.Of(kOpen, last.key))
        if (line.day == last.day) side_.Remove(line);
}

void Outcomes::RemoveAsleep(const OccurrenceRef& occurrence) {
    for (const SideLine& line : side_.Of(kSleep, occurrence.key))
        if (line.day == occurrence.day) side_.Remove(line);
}

void Outcomes::Answer(const std::vector<OccurrenceRef>& occurrences) {
    if (occurrences.empty()) return;
    side_.Refresh();
    for (const OccurrenceRef& occurrence : occurrences)
        NoteAnswered(occurrence);
    side_.Save();
}

void Outcomes::NoteAnswered(const OccurrenceRef& occurrence) {
    std::string what = SideTime(occurrence.moment);
    for (const Open& open : OpenOf(occurrence.key))
        if (open.last.day == occurrence.day && open.first < open.last.day)
            what += " " + std::string(kFrom) + SideDay(open.first);
    RemoveOpen(occurrence);
    RemoveAsleep(occurrence);
    side_.Add(Line(kAnswered, occurrence, what));
}

std::vector<Outcomes::Open> Outcomes::AllOpen() const {
    std::vector<Open> all;
    ForEach(side_, kOpen, [&](const SideLine& line) {
        if (auto open = OpenIn(line)) all.push_back(std::move(*open));
    });
    return all;
}

std::vector<Outcomes::Open> Outcomes::OpenOf(const SideKey& key) const {
    std::vector<Open> found;
    for (const SideLine& line : side_.Of(kOpen, key))
        if (auto open = OpenIn(line)) found.push_back(std::move(*open));
    return found;
}

void Outcomes::AddOpen(const Open& open) {
    const std::size_t before = side_.Of(kOpen, open.last.key).size();
    if (before > 0) RemoveOpen(open.last);
    side_.Add(Line(kOpen, open.last, OpenText(open)));
    if (before < kMostEntries) return;
    const std::vector<Open> all = OpenOf(open.last.key);
    if (all.size() <= kMostEntries) return;
    Open both = all[1];
    both.first = std::min(both.first, all[0].first);
    both.count += all[0].count;
    RemoveOpen(all[0].last);
    RemoveOpen(both.last);
    side_.Add(Line(kOpen, both.last, OpenText(both)));
}
std::vector<Outcomes::Asleep> Outcomes::AllAsleep() const {
    std::vector<Asleep> all;
    ForEach(side_, kSleep, [&](const SideLine& line) {
        if (auto asleep = AsleepIn(line)) all.push_back(std::move(*asleep));
    });
    return all;
}

std::vector<Outcomes::Asleep> Outcomes::AsleepOf(const SideKey& key) const {
    std::vector<Asleep> found;
    for (const SideLine& line : side_.Of(kSleep, key))
        if (const auto asleep = AsleepIn(line)) found.push_back(*asleep);
    return found;
}

bool Outcomes::IsAsleep(const OccurrenceRef& occurrence) const {
    const std::vector<Asleep> asleep = AsleepOf(occurrence.key);
    return std::any_of(asleep.begin(), asleep.end(), [&](const Asleep& one) {
        return one.occurrence.day == occurrence.day && occurrence.moment <= one.occurrence.moment;
    });
}

void Outcomes::Sleep(const std::vector<OccurrenceRef>& occurrences, DateValue until,
                     const std::vector<OccurrenceRef>& ended) {
    if (occurrences.empty()) return;
    side_.Refresh();
    for (const OccurrenceRef& occurrence : ended)
        NoteAnswered(occurrence);
    for (const OccurrenceRef& occurrence : occurrences) {
        RemoveAsleep(occurrence);
        side_.Add(Line(kSleep, occurrence, SideTime(until) + " " + SideTime(occurrence.moment)));
    }
    side_.Save();
}

void Outcomes::Moved(const SideKey& key) {
    for (const std::string_view verb : {kSleep, kOpen})
        for (const SideLine& line : side_.Of(verb, key))
            side_.Remove(line);
}

void Outcomes::Skipped(const SideKey& key, DateValue day) {
    for (const Asleep& asleep : AsleepOf(key))
        if (asleep.occurrence.day == day) RemoveAsleep(asleep.occurrence);
    for (const Open& open : OpenOf(key))
        if (open.first == day && open.last.day == day) RemoveOpen(open.last);
}

std::vector<Outcomes::Awaited> Outcomes::AllAwaited() const {
    std::vector<Awaited> all;
    ForEach(side_, kAwait, [&](const SideLine& line) {
        std::string_view text = line.argument;
        const auto moment = TakeMoment(text, kTimeLength);
        if (moment && line.day) all.push_back({{line.key, *line.day, *moment}, std::string(text)});
    });
    return all;
}

void Outcomes::SetAwaited(const std::string& file, const std::vector<Awaited>& awaited) {
    SideFile::Lines wanted;
    for (const Awaited& one : awaited)
        wanted.insert(Line(kAwait, one.occurrence, SideTime(one.occurrence.moment) + " " + one.text));
    std::vector<SideLine> leave;
    ForEach(side_, kAwait, [&](const SideLine& line) {
        if (line.key.file == file && !wanted.contains(line)) leave.push_back(line);
    });
    for (const SideLine& line : leave)
        side_.Remove(line);
    for (const SideLine& line : wanted)
        side_.Add(line);
    side_.Add({std::string(kKnown), {file, "", ""}, std::nullopt, ""});
}

bool Outcomes::KnowsFile(const std::string& file) const { return !side_.Of(kKnown, {file, "", ""}).empty(); }

void Outcomes::PutBackTo(DateValue moment) {
    std::vector<SideLine> leave;
    ForEach(side_, kOpen, [&](const SideLine& line) {
        if (const auto open = OpenIn(line); open && open->last.moment > moment) leave.push_back(line);
    });
    ForEach(side_, kAnswered, [&](const SideLine& line) {
        const auto until = SideMoment(std::string_view(line.argument).substr(0, kTimeLength));
        if (until && *until > moment) leave.push_back(line);
    });
    for (const SideLine& line : leave)
        side_.Remove(line);
}

// What lies in the future was told by a clock that was ahead. Not what is so near that the clock may only
// have been set back a little, for an hour of summer or a journey.
bool Outcomes::IsSpent(const SideLine& line, DateValue now) {
    const auto isAhead = [&](DateValue day) { return day.Day() > now.Day() + 2; };
    if (!line.day) return false;
    if (line.verb == kOpen) return isAhead(*line.day);
    const auto until = line.verb == kAnswered
                           ? SideMoment(std::string_view(line.argument).substr(0, kTimeLength))
                           : std::nullopt;
    return until && isAhead(*until);
}

bool Outcomes::IsOld(const SideLine& line, DateValue now) {
    return line.day && line.day->Day() < now.Day() - kKeptDays &&
           (IsOfDay(line) || line.verb == kOpen || line.verb == kSleep);
}

bool Outcomes::IsOfDay(const SideLine& line) { return line.verb == kAnswered || line.verb == kSkip; }

}  // namespace kaz
