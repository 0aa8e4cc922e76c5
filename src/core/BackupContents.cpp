#include "core/BackupContents.h"

#include "base/Text.h"
#include "core/Backup.h"
#include "platform/Files.h"
#include "platform/ZipArchiver.h"
#include "storage/EventDigest.h"
#include "storage/EventXml.h"
#include "storage/Owner.h"
#include "storage/SideExtras.h"
#include "storage/WholeTexts.h"
#include "support/Names.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kKeptEvents = "Events (";  // beginning of the name of a kept copy
constexpr std::string_view kKeptExpired = "Expired (";

bool IsArchive(const std::string& name) { return UpperAscii(name).ends_with(".ZIP"); }
bool IsKeptCopy(const std::string& name) {
    return name.starts_with(kKeptEvents) && UpperAscii(name).ends_with(".XML");
}

// One of the files in a backup, "" when it is not there or cannot be read.
std::string TextIn(Application& app, const std::string& path, std::string_view name) {
    if (IsArchive(path)) return app.platform.zip.ZpRead(path, std::string(name));
    std::string file = path;
    if (name == kExpiredFile)
        file =
            JoinPath(FolderOf(path), std::string(kKeptExpired) + FileNameOf(path).substr(kKeptEvents.size()));
    if (name != kExpiredFile && name != kEventsFile) return {};
    std::string text;
    ErrorTrap(app.log, "TextIn", "BackupContents")([&] {
        if (FileExists(app.platform.files, file)) text = ReadWholeFile(app.platform.files, file);
    });
    return text;
}

std::vector<clsEvent> EventsIn(Application& app, const std::string& path, std::string_view name) {
    std::vector<clsEvent> events =
        EventXml(app.platform.locale.Data(), app.log).ReadAll(TextIn(app, path, name));
    std::erase_if(events, [](const clsEvent& event) { return event.Deleted; });
    for (clsEvent& event : events) {
        AdoptOrphan(event, app.Owner());
        event.Layer(clsLayers::OwnOr(event.Layer()));
    }
    SideLines beside;
    const std::string side = TextIn(app, path, FileNameOf(SideFile::PathFor(kEventsFile)));
    for (const std::string_view line : Split(side, kLineBreak))
        if (auto entry = SideLine::Parse(line)) beside.insert(std::move(*entry));
    GiveExtras(events, beside, kOwnEvents);
    return events;
}

// What is here now, by code and by words.
class Present {
public:
    explicit Present(const Application& app) {
        Add(*app.expired, true);
        Add(*app.events, false);  // a code of theirs may be an expired one's as well
    }
    BackedUpEvent Compare(clsEvent event, bool expired) const {
        const std::uint64_t words = EventDigest(event).words;
        const auto there = codes_.find(event.IDCode);
        const bool isTaken = there != codes_.end();
        const bool isOther = isTaken && !IsSame(*there->second.first, event);
        using State = BackedUpEvent::State;
        // One that has neither its text nor its day is another event, which drew the code when it was free.
        const bool isAnother = isOther && there->second.first->Desc() != event.Desc() &&
                               there->second.first->DueDate() != event.DueDate();
        if (isOther && !isAnother) {
            const auto& [now, nowExpired] = there->second;
            return {std::move(event), expired, State::Different, *now, nowExpired};
        }
        const bool isHere = (isTaken && !isOther) || words_.contains(words);
        return {std::move(event), expired, isHere ? State::Here : State::Missing, {}, false};
    }

private:
    void Add(const clsDbXml& database, bool expired) {
        for (const clsEvent& event : database.AllEvents()) {
            if (event.Deleted) continue;
            codes_[event.IDCode] = {&event, expired};
            words_.insert(EventDigest(event).words);
        }
    }
    static bool IsSame(const clsEvent& now, const clsEvent& then) {
        return EventDigest(now).words == EventDigest(then).words && now.Extras() == then.Extras() &&
               HaveSameTexts(now, then) && (now.Recurring() || now.DueDate() == then.DueDate());
    }

    std::unordered_map<std::string_view, std::pair<const clsEvent*, bool>> codes_;
    std::unordered_set<std::uint64_t> words_;
};

}  // namespace

std::vector<BackupSource> FindBackups(Application& app) {
    std::vector<BackupSource> found;
    std::vector<std::string> folders{JoinPath(app.runtimePath, kBackupFolder)};
    if (const std::string second = app.settings.TextOr("SecondBackupFolder", ""); !second.empty())
        folders.push_back(second);
    for (const std::string& folder : folders)
        for (const std::string& name : app.platform.files.FilesIn(folder)) {
            if (!IsArchive(name) && !IsKeptCopy(name)) continue;
            BackupSource& source = found.emplace_back();
            source.path = JoinPath(folder, name);
            source.made = DateOf(app, app.platform.files.ModificationTime(source.path).value_or(0));
            const std::string events = TextIn(app, source.path, kEventsFile);
            source.isReadable = !events.empty();
            source.events = EventXml::CountIn(events);
            source.expired = EventXml::CountIn(TextIn(app, source.path, kExpiredFile));
        }
    std::ranges::sort(found, [](const BackupSource& a, const BackupSource& b) {
        return std::tie(b.made, a.path) < std::tie(a.made, b.path);
    });
    return found;
}

std::vector<BackedUpEvent> EventsOfBackup(Application& app, const std::string& path) {
    app.CatchUp();
    const Present present(app);
    std::vector<BackedUpEvent> events;
    for (const bool expired : {false, true})
        for (clsEvent& event : EventsIn(app, path, expired ? kExpiredFile : kEventsFile))
            events.push_back(present.Compare(std::move(event), expired));
    std::ranges::stable_sort(events, [](const BackedUpEvent& a, const BackedUpEvent& b) {
        return std::pair(a.state, a.event.DueDate()) < std::pair(b.state, b.event.DueDate());
    });
    return events;
}

}  // namespace kaz
