#include "storage/ChangeJournal.h"

#include "base/CodePage.h"
#include "base/DateText.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "storage/EventFields.h"
#include "storage/SideExtras.h"
#include "storage/WholeTexts.h"
#include "support/Names.h"

#include <algorithm>
#include <array>

namespace kaz {

namespace {

constexpr std::size_t kLongestText = 500;           // of a description; a longer one shows its beginning
constexpr std::string_view kNoDay = "1899-12-30 ";  // before a time without a date

// What the line says anyway, and what the days make of an event by themselves.
constexpr std::array<std::string_view, 5> kLeftOut{"IDCode", "DaysLeft", "Deleted", "MailSent", "Desc"};

std::string Quoted(std::string_view text) { return "\"" + Beginning(OneLine(text), kLongestText) + "\""; }

std::string ValueOf(const EventField& field, const clsEvent& event) {
    if (field.tag == "ShareNames") return OneLine(event.ShareNames);
    std::string bytes;
    field.write(event, FieldWriter(bytes));
    const std::string value = CodePage::OfSystem().Decode(bytes);
    return value.starts_with(kNoDay) ? value.substr(kNoDay.size()) : OneLine(value);
}

void AddValue(std::string& line, std::string_view name, const std::string& before, const std::string& after,
              const ChangedEvent& change) {
    if (before == after) return;
    line.append(line.ends_with(':') ? " " : "; ").append(name).append(" ");
    if (change.before) line.append(before);
    if (change.before && change.after) line.append(" -> ");
    if (change.after) line.append(after);
}

// What the event has beside the fields of its file, such as "skip 2026-12-25, always".
std::string ExtrasOf(const clsEvent& event) {
    std::string text;
    for (const SideLine& line : ExtraLines(event, kOwnEvents)) {
        if (IsWholeText(line)) continue;
        text.append(text.empty() ? "" : ", ").append(line.verb);
        if (line.day) text.append(" ").append(SideDay(*line.day));
        if (!line.argument.empty()) text.append(" ").append(line.argument);
    }
    return text;
}

std::string PlaceOf(bool expired) { return std::string(expired ? kExpiredFile : kEventsFile); }

// Of an event that is new or gone what is not as in an empty one, of another what is not as before.
void AppendLine(std::string& lines, std::string_view beginning, std::string_view what,
                const ChangedEvent& change) {
    static const clsEvent kEmpty;
    const clsEvent& before = change.before ? *change.before : kEmpty;
    const clsEvent& after = change.after ? *change.after : kEmpty;
    const clsEvent& known = change.before ? before : after;
    if (what.empty()) what = !change.before ? "addition" : !change.after ? "deletion" : "change";
    std::string line(beginning);
    line.append(what)
        .append(" of ")
        .append(known.IDCode)
        .append(" ")
        .append(Quoted(known.Desc()))
        .append(":");
    if (change.before && change.after && before.Desc() != after.Desc())
        AddValue(line, "Desc", Quoted(before.Desc()), Quoted(after.Desc()), change);
    for (const EventField& field : EventFields())
        if (std::find(kLeftOut.begin(), kLeftOut.end(), field.tag) == kLeftOut.end())
            AddValue(line, field.tag, ValueOf(field, before), ValueOf(field, after), change);
    AddValue(line, "Beside", ExtrasOf(before), ExtrasOf(after), change);
    AddValue(line, "File", change.before ? PlaceOf(change.wasExpired) : "",
             change.after ? PlaceOf(change.isExpired) : "", change);
    lines.append(line).append(kLineBreak);
}

}  // namespace

std::string ChangeJournal::FileName() const { return JoinPath(folder_(), kJournalFile); }

void ChangeJournal::Write(std::string_view who, std::string_view what,
                          const std::vector<ChangedEvent>& changes) noexcept {
    if (silences_ > 0 || changes.empty()) return;
    ErrorTrap trap(log_, "Write", "ChangeJournal");
    trap([&] {
        static const LocaleData kNoNames;
        std::string beginning = FormatDate(clock_.Now(), "YYYY-MM-DD HH:NN:SS", kNoNames);
        beginning.append(", ").append(OneLine(who)).append(", ");
        std::string lines;
        for (const ChangedEvent& change : changes)
            AppendLine(lines, beginning, what, change);
        const std::string file = FileName();
        MakeRoom(file, lines.size());
        AppendText(files_, file, CodePage::OfSystem().Encode(lines));
    });
}

void ChangeJournal::MakeRoom(const std::string& file, std::size_t bytes) {
    if (!FileExists(files_, file) || files_.OpenForReading(file)->Size() + bytes <= kMostBytes) return;
    files_.Replace(file, WithExtension(file, " (old).txt"));
}

}  // namespace kaz
