#include "core/ConflictCopies.h"

#include "base/CaseFolding.h"
#include "base/Text.h"
#include "core/Application.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "storage/EventDigest.h"
#include "support/Names.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace kaz {

namespace {

constexpr const char* kAnsweredSetting = "CONFLICTCOPIES";
constexpr std::string_view kSeparator = "/";  // no name has one

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
    const std::string key = "Conflict copy " + name;
    const std::vector<clsEvent> missing = OnlyIn(JoinPath(app_.DataPath(), name));
    app_.health.Clear(key);
    if (missing.empty()) return;
    const bool one = missing.size() == 1;
    const std::string what = one ? "The event \"" + OneLine(missing[0].DescShown()) + "\" is"
                                 : std::to_string(missing.size()) + " events are";
    app_.health.Tell(
        {key,
         Health::Weight::Note,
         what + " only in " + name +
             ", a copy that was made when two machines had changed your events at the same time.",
         {{one ? "Take it over" : "Take them over",
           [this, name, key, missing] {
               TakeOver(missing);
               Answered(name);
               app_.health.Clear(key);
           }},
          {"Leave it", [this, name, key] {
               Answered(name);
               app_.health.Clear(key);
           }}}});
}

// An event is known by its code, or by what it says.
std::vector<clsEvent> ConflictCopies::OnlyIn(const std::string& path) {
    std::unordered_set<std::string_view> codes;
    std::unordered_set<std::uint64_t> words;
    for (const clsDbXml* database : {app_.events.get(), app_.expired.get()})
        for (const clsEvent& event : database->AllEvents()) {
            codes.insert(event.IDCode);
            if (!event.Deleted) words.insert(EventDigest(event).words);
        }
    clsDbXml copy(app_.Storage());
    copy.LoadDB(path);
    std::vector<clsEvent> missing;
    for (const clsEvent& event : copy.AllEvents())
        if (!codes.contains(event.IDCode) && !words.contains(EventDigest(event).words))
            missing.push_back(event);
    return missing;
}

void ConflictCopies::TakeOver(std::vector<clsEvent> missing) {
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
