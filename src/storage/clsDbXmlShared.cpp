#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "storage/Owner.h"
#include "storage/SharedFolder.h"
#include "storage/SideExtras.h"
#include "storage/clsDbXml.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kaz {

void clsDbXml::LoadMultiple(const std::string& listFile) {
    const bool changed = watched_.Changed();
    // Watched like the files that it names: a user who joins is seen at the next look.
    watched_.Clear();
    watched_.Add(listFile);
    const SharedFolder folder(stores_.platform.files, stores_.settings, stores_.log);
    const std::string me = CurrentOwner(stores_.settings);
    ReadUsers(folder, listFile);

    std::vector<clsEvent> events;
    std::vector<std::string> sources;
    sourcesRead_.clear();
    ErrorTrap trap(stores_.log, "LoadMultiple", kModule);
    for (const std::string& user : users_) {
        stores_.log.LogEvent("Found shared database " + user);
        if (StringsEqual(user, me, stores_.platform.locale.Folding())) {
            stores_.log.LogEvent("Not loading - belongs to current user (" + me + ")");
            continue;
        }
        trap([&] {
            std::vector<clsEvent> file = LoadFrom(user, folder.FileOf(user));
            sources.push_back(user);
            for (clsEvent& event : file) {
                event.Source = static_cast<std::int32_t>(sources.size());
                events.push_back(std::move(event));
            }
        });
    }
    Exchange(std::move(events));
    sources_ = std::move(sources);
    const std::string own = folder.FileOf(me);
    stores_.log.LogEvent("Setting Database filename to " + own);
    fileName_ = own;
    lastKnownDate_ = FileDate();
    TellLoad(changed);
}

// A list that cannot be read now is that of the last time.
void clsDbXml::ReadUsers(const SharedFolder& folder, const std::string& listFile) {
    ErrorTrap trap(stores_.log, "LoadMultiple", kModule);
    if (!trap([&] { users_ = folder.UsersOf(listFile); })) watched_.LastWasNotRead();
}

// And likewise the user's events.
std::vector<clsEvent> clsDbXml::LoadFrom(const std::string& user, const std::string& path) {
    watched_.Add(path);
    const PathKind kind = stores_.platform.files.Kind(path);
    stores_.log.LogEvent(kind == PathKind::File ? "Loading from " + path
                                                : path + " not found. Setting null refresh date.");
    std::vector<clsEvent> events;
    try {
        if (kind != PathKind::Missing)
            ReadFile(path, events);
        else if (!FolderExists(stores_.platform.files, FolderOf(path)))
            throw RuntimeError(ErrorNumber::PathNotFound);
        sourcesRead_.push_back(user);
    } catch (...) {
        stores_.log.Report(CurrentError(), "LoadDB", kModule);
        stores_.log.LogEvent("Unable to read events from " + path);
        watched_.LastWasNotRead();
        events.clear();
        std::copy_if(AllEvents().begin(), AllEvents().end(), std::back_inserter(events),
                     [&](const clsEvent& event) { return SourceOf(event) == user; });
    }
    TakeExtrasOf(path, events);
    return events;
}

// What their owner's side file says of them; without it they come too often, never too seldom.
void clsDbXml::TakeExtrasOf(const std::string& path, std::vector<clsEvent>& events) {
    const std::string side = SideFile::PathFor(path);
    watched_.Add(side);
    ErrorTrap trap(stores_.log, "LoadMultiple", kModule);
    const bool read = trap([&] {
        GiveExtras(events, ReadSideLines(stores_.platform.files, side), WithExtension(FileNameOf(path), ""));
    });
    if (!read) watched_.LastWasNotRead();
}

std::string clsDbXml::SourceOf(const clsEvent& event) const {
    const auto position = static_cast<std::size_t>(event.Source) - 1;
    return position < sources_.size() ? sources_[position] : std::string();
}

}  // namespace kaz
