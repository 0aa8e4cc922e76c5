#include "core/ConflictCopies.h"

#include "base/CaseFolding.h"
#include "base/DateText.h"
#include "base/Text.h"
#include "core/Application.h"
#include "core/JournalScope.h"
#include "core/NamedEvents.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "storage/EventDigest.h"
#include "support/Names.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

constexpr const char* kAnsweredSetting = "CONFLICTCOPIES";
constexpr std::string_view kSeparator = "/";  // no name has one
constexpr const char* kMadeBy =
    ", a copy that was made when two machines had changed your events at the same time.";

std::string NoticeOf(const std::string& name) { return "Conflict copy " + name; }

// The days move recurring events by themselves.
bool IsDifferent(const clsEvent& copy, const clsEvent& mine) {
    return EventDigest(copy).words != EventDigest(mine).words ||
           (!mine.Recurring() && copy.DueDate() != mine.DueDate());
}

std::string Described(const clsEvent& event, const LocaleData& locale) {
    return NameOf({event}) + " on " + GeneralDateText(event.DueDate(), locale);
}

// Also in the words of other languages.
bool IsCopyOf(std::string_view name, std::string_view file) {
    const CaseFolding& letters = CaseFolding::Ascii();
    const std::string stem = WithExtension(file, "");
    static constexpr std::array<std::string_view, 3> kWords{"conflict", "konflikt", "conflit"};
    return name.size() > file.size() && letters.Equal(name.substr(0, stem.size()), stem) &&
           letters.Equal(name.substr(name.size() - 4), ".xml") &&
           std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) {
               return letters.Find(name, word) != std::string_view::npos;
           });
}

}  // namespace

void ConflictCopies::Look() {
    if (!app_.events || !app_.expired || !app_.events->WasRead()) return;
    ErrorTrap trap(app_.log, "Look", "ConflictCopies");
    for (const std::string& name : app_.platform.files.FilesIn(app_.DataPath())) {
        if (!IsCopyOf(name, kEventsFile) || IsAnswered(name)) continue;
        trap([&] {
            const auto date = app_.platform.files.ModificationTime(JoinPath(app_.DataPath(), name));
            const auto seen = seen_.find(name);
            if (seen != seen_.end() && seen->second == date.value_or(0)) return;
            seen_[name] = date.value_or(0);
            Offer(name);
        });
    }
}

void ConflictCopies::Offer(const std::string& name) {
    const auto [missing, different] = NewIn(JoinPath(app_.DataPath(), name));
    app_.health.Clear(NoticeOf(name));
    if (missing.empty()) {
        if (!different.empty()) OfferNext(name, different);
        return;
    }
    const bool one = missing.size() == 1;
    const std::string what = one ? "The event " + NameOf(missing) + " is" : NameOf(missing) + " are";
    app_.health.Tell({NoticeOf(name),
                      Health::Weight::Note,
                      what + " only in " + name + kMadeBy,
                      {{one ? "Take it over" : "Take them over",
                        [this, name, all = missing, rest = different] {
                            TakeOver(all);
                            OfferNext(name, rest);
                        }},
                       {"Leave it", [this, name, rest = different] { OfferNext(name, rest); }}}});
}

// One after the other, since the user may want this version of one event and that of another.
void ConflictCopies::OfferNext(const std::string& name, std::vector<clsEvent> different) {
    const auto isSettled = [this](const clsEvent& copy) {
        const clsEvent* mine = app_.events->ReadEvent(copy.IDCode);
        return !mine || mine->Deleted || !IsDifferent(copy, *mine);
    };
    std::erase_if(different, isSettled);
    if (different.empty()) {
        Answered(name);
        app_.health.Clear(NoticeOf(name));
        return;
    }
    const clsEvent copy = different.back();
    const clsEvent mine = *app_.events->ReadEvent(copy.IDCode);
    const LocaleData& locale = app_.platform.locale.Data();
    const std::string here = Described(mine, locale);
    const std::string there = Described(copy, locale);
    std::string text = here + " is different in " + name + (here == there ? "" : ": " + there) + kMadeBy;
    if (different.size() > 1) text += " So are " + std::to_string(different.size() - 1) + " more.";
    Health::Notice notice{NoticeOf(name), Health::Weight::Note, std::move(text), {}};
    for (const auto& [caption, choice] : {std::pair{"Take that of the copy", Choice::Copy},
                                          {"Keep mine", Choice::Mine},
                                          {"Keep both", Choice::Both}})
        notice.actions.push_back(
            {caption, [this, name, different, choice = choice, shown = EventDigest(mine)] {
                 std::vector<clsEvent> rest = different;
                 const clsEvent* now = app_.events->ReadEvent(rest.back().IDCode);
                 // What has changed since it was shown is asked for anew.
                 if (now && EventDigest(*now) == shown) {
                     Choose(choice, rest.back());
                     rest.pop_back();
                 }
                 OfferNext(name, std::move(rest));
             }});
    app_.health.Tell(std::move(notice));
}

void ConflictCopies::Choose(Choice choice, const clsEvent& copy) {
    if (choice == Choice::Mine) return;
    const JournalScope scope(app_, "taking over a conflict copy");
    app_.events->StoreRecord(copy, choice == Choice::Both);
    app_.events->SaveDB();
    app_.mainListIsStale = true;
}

// An event is known by its code, or by what it says.
ConflictCopies::Content ConflictCopies::NewIn(const std::string& path) {
    std::unordered_map<std::string_view, const clsEvent*> known;
    std::unordered_set<std::uint64_t> words;
    // The current ones last: a code of theirs may be an expired one's as well.
    for (const clsDbXml* database : {app_.expired.get(), app_.events.get()})
        for (const clsEvent& event : database->AllEvents()) {
            known[event.IDCode] = &event;
            if (!event.Deleted) words.insert(EventDigest(event).words);
        }
    clsDbXml copy(app_.Storage());
    copy.LoadDB(path);
    Content content;
    for (const clsEvent& event : copy.AllEvents()) {
        const auto found = known.find(event.IDCode);
        if (found == known.end()) {
            if (!words.contains(EventDigest(event).words)) content.missing.push_back(event);
        } else if (!found->second->Deleted && IsDifferent(event, *found->second)) {
            const bool isCurrent = app_.events->ReadEvent(event.IDCode) != nullptr;
            (isCurrent ? content.different : content.missing).push_back(event);
        }
    }
    return content;
}

void ConflictCopies::TakeOver(std::vector<clsEvent> missing) {
    const JournalScope scope(app_, "taking over a conflict copy");
    // Since they were found, their codes may have been given to others, such as those of another copy.
    for (clsEvent& event : missing)
        if (app_.events->ReadEvent(event.IDCode)) event.IDCode.clear();
    app_.events->PutOnTop({std::move(missing), {}});
    app_.events->SaveDB();
}

void ConflictCopies::Answered(const std::string& name) {
    std::string names = app_.settings.TextOr(kAnsweredSetting, "");
    if (!names.empty()) names += kSeparator;
    app_.settings.StoreSetting(kAnsweredSetting, names + name);
    app_.settings.SaveSettings(app_.settingsFileName);
}

bool ConflictCopies::IsAnswered(const std::string& name) const {
    const std::string names = app_.settings.TextOr(kAnsweredSetting, "");
    const auto all = Split(names, kSeparator);
    return std::find(all.begin(), all.end(), name) != all.end();
}

}  // namespace kaz
