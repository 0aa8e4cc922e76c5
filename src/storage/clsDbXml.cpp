#include "storage/clsDbXml.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/SafeFileWriter.h"
#include "storage/ErrorBatch.h"
#include "storage/EventFileReader.h"
#include "storage/EventFileWriter.h"
#include "storage/EventIntake.h"
#include "storage/Owner.h"
#include "storage/SharedFolder.h"

#include <algorithm>
#include <utility>

namespace kaz {

clsDbXml::clsDbXml(const StorageServices& services)
    : services_(services),
      codes_(services.clock, services.random),
      watched_(services.files, services.log),
      overwritten_(services) {}

bool clsDbXml::DatabaseChanged() const {
    return watched_.Empty() ? FileDate() != lastKnownDate_ : watched_.Changed();
}

void clsDbXml::LoadDBIfChanged(const std::string& fileName) {
    if (DatabaseChanged()) LoadDB(fileName);
}

void clsDbXml::LoadDB(const std::string& fileName, bool append) {
    fileName_ = fileName;
    lastKnownDate_ = FileDate();
    try {
        std::vector<clsEvent> events;
        ReadFile(append ? events_ : events);
        codes_.Forget();
        if (!append) {
            events_.swap(events);
            unsaved_ = false;
        }
        if (unreadFile_ == fileName_) StoreWaiting(std::move(events));
    } catch (...) {
        services_.log.Report(CurrentError(), "LoadDB", kModule);
        services_.log.LogEvent("Unable to read events from " + fileName_);
        unreadFile_ = fileName_;
        // Without a date the file counts as changed, so that the next look at it tries again.
        lastKnownDate_.reset();
    }
}

// Adds the file's events, or when one cannot be read, none.
void clsDbXml::ReadFile(std::vector<clsEvent>& events) const {
    // A file with a date needs no further look, which across a network takes its time.
    if (!lastKnownDate_) {
        // A folder that is gone, such as a share without its network, is no empty database.
        const std::string folder = FolderOf(fileName_);
        if (!folder.empty() && services_.files.Kind(folder) == PathKind::Missing)
            throw RuntimeError(ErrorNumber::PathNotFound);
        if (services_.files.Kind(fileName_) == PathKind::Missing) return;
    }

    const std::size_t before = events.size();
    try {
        ReadEvents(events);
    } catch (...) {
        events.resize(before);
        throw;
    }
}

void clsDbXml::ReadEvents(std::vector<clsEvent>& events) const {
    const std::size_t before = events.size();
    const auto file = services_.files.OpenForReading(fileName_);
    ErrorBatch errors(services_.log);
    EventFileReader reader(*file, services_.locale.Data(), errors);
    const EventIntake intake(services_, foreignFileFilter_);
    for (;;) {
        if (events.size() == events.capacity()) {
            // Behind other files' events there are mostly more files to come, and each step moves all of
            // them.
            const std::size_t step = before ? 3 * events.size() : events.size() / 8;
            events.reserve(std::max(events.size() + step + 64, before + reader.EstimatedCount()));
        }
        const bool read = reader.Next(events.emplace_back());
        if (!read || !intake.Admit(events.back())) events.pop_back();
        if (!read) return;
    }
}

// What the user stored while the file could not be read joins what the file holds, and is saved at last.
void clsDbXml::StoreWaiting(std::vector<clsEvent> before) {
    unreadFile_.clear();
    const std::vector<Waiting> waiting = std::exchange(waiting_, {});
    ErrorTrap trap(services_.log, "LoadDB", kModule);
    for (const Waiting& stored : waiting) {
        const auto same = [&](const clsEvent& event) {
            return event.IDCode == stored.code && !event.Deleted;
        };
        const auto found = std::find_if(before.begin(), before.end(), same);
        if (found == before.end()) continue;
        trap([&] { StoreRecord(std::move(*found), stored.isNew && Find(stored.code) != events_.end()); });
    }
    if (!waiting.empty()) SaveDB();
}

void clsDbXml::Forget() {
    events_.clear();
    codes_.Forget();
    fileName_.clear();
    lastKnownDate_.reset();
    unreadFile_.clear();
    missingFile_.clear();
    waiting_.clear();
    unsaved_ = false;
    watched_.Clear();
}

bool clsDbXml::MustNotWrite() const {
    if (services_.files.Kind(fileName_) == PathKind::Missing)
        return !missingFile_.empty() && missingFile_ == fileName_;
    return !unreadFile_.empty() && unreadFile_ == fileName_;
}

bool clsDbXml::SaveDB() {
    if (MustNotWrite()) {
        services_.log.LogEvent("Unable to write events. " + fileName_ + " could not be read.");
        return false;
    }
    const std::optional<FileTime> date = FileDate();
    const bool unread = date && date != lastKnownDate_;
    const bool kept = !unread || overwritten_.Keep(fileName_, *date);
    const bool written = kept && WriteFile();
    unsaved_ = !written;
    if (written) {
        unreadFile_.clear();
        waiting_.clear();
    }
    // Also after a failed write, which must not look like a change by somebody else. What could not be kept
    // is such a change, and stays one.
    if (kept) lastKnownDate_ = FileDate();
    if (copyToShared_) copyToShared_();
    return written;
}

bool clsDbXml::WriteFile() {
    std::optional<SafeFileWriter> file;
    try {
        if (fileName_.empty()) throw RuntimeError(ErrorNumber::PathFileAccess);
        file.emplace(services_.files, fileName_);
        WriteEvents(*file, events_);
        file->Commit();
        return true;
    } catch (...) {
        const ErrorInfo error = CurrentError();
        const bool denied = error.number == static_cast<int>(ErrorNumber::PermissionDenied);
        if (!file) services_.log.LogEvent("Output file readonly. Unable to write events.");
        if (file || !denied) services_.log.Report(error, "SaveDB", kModule);
        return false;
    }
}

clsDbXml::Position clsDbXml::Find(std::string_view code) {
    return std::find_if(events_.begin(), events_.end(),
                        [&](const clsEvent& event) { return event.IDCode == code; });
}

clsEvent* clsDbXml::ReadEvent(std::string_view code) {
    const auto found = Find(code);
    if (found == events_.end()) return nullptr;
    codes_.Forget();
    return &*found;
}

void clsDbXml::DeleteRecord(std::string_view code) {
    if (const auto found = Find(code); found != events_.end()) found->Deleted = true;
    SaveDB();
}

void clsDbXml::StoreRecord(clsEvent event, bool forceNew) {
    bool isNew = forceNew || event.IDCode.empty();
    if (isNew) {
        event.IDCode = codes_.Unused(events_);
    } else {
        const auto old = codes_.MayHold(events_, event.IDCode) ? Find(event.IDCode) : events_.end();
        isNew = old == events_.end();
        if (!isNew) events_.erase(old);
    }
    if (MustNotWrite()) waiting_.push_back({event.IDCode, isNew});
    if (isNew) codes_.Added(event.IDCode);
    events_.push_back(std::move(event));
}

void clsDbXml::WipeDiskFile() {
    ErrorTrap trap(services_.log, "WipeDiskFile", kModule);
    trap([&] {
        if (services_.files.Kind(fileName_) != PathKind::Missing) services_.files.Delete(fileName_);
    });
}

void clsDbXml::WipeRecordsByOwner(std::string_view owner) {
    LoadDB(fileName_);
    MarkRecordsByOwner(owner);
    SaveDB();
}

void clsDbXml::MarkRecordsByOwner(std::string_view owner) {
    for (clsEvent& event : events_)
        if (StringsEqual(event.Owner(), owner, services_.locale.Folding())) event.Deleted = true;
}

void clsDbXml::SetAllToSingleUser() {
    for (clsEvent& event : events_)
        event.Owner(std::string(kSingleUser));
    SaveDB();
}

void clsDbXml::WipeAllButThisOwner(std::string_view owner) {
    if (owner.empty()) return;
    for (clsEvent& event : events_)
        if (!StringsEqual(event.Owner(), owner, services_.locale.Folding())) event.Deleted = true;
    SaveDB();
}

void clsDbXml::RenameOwner(std::string_view oldName, std::string_view newName) {
    for (clsEvent& event : events_)
        if (StringsEqual(event.Owner(), oldName, services_.locale.Folding()))
            event.Owner(std::string(newName));
    SaveDB();
}

void clsDbXml::LoadMultiple(const std::string& listFile) {
    codes_.Forget();
    events_.clear();
    // What waits is no longer there; another user's event may have the same code.
    waiting_.clear();
    // Watched like the files that it names: a user who joins is seen at the next look.
    watched_.Clear();
    watched_.Add(listFile);
    sources_.clear();

    const SharedFolder folder(services_.files, services_.settings, services_.log);
    const std::string me = CurrentOwner(services_.settings);
    ErrorTrap trap(services_.log, "LoadMultiple", kModule);
    std::vector<std::string> users;
    trap([&] { users = folder.UsersOf(listFile); });
    for (const std::string& user : users) {
        services_.log.LogEvent("Found shared database " + user);
        if (StringsEqual(user, me, services_.locale.Folding()))
            services_.log.LogEvent("Not loading - belongs to current user (" + me + ")");
        else
            trap([&] { LoadFrom(user, folder.FileOf(user)); });
    }
    const std::string own = folder.FileOf(me);
    services_.log.LogEvent("Setting Database filename to " + own);
    fileName_ = own;
    lastKnownDate_ = FileDate();
}

void clsDbXml::LoadFrom(const std::string& user, const std::string& path) {
    const std::size_t before = events_.size();
    LoadWatched(path);
    sources_.push_back(user);
    for (std::size_t position = before; position < events_.size(); ++position)
        events_[position].Source = static_cast<std::int32_t>(sources_.size());
}

std::string clsDbXml::SourceOf(const clsEvent& event) const {
    const auto position = static_cast<std::size_t>(event.Source) - 1;
    return position < sources_.size() ? sources_[position] : std::string();
}

void clsDbXml::LoadWatched(const std::string& path) {
    const bool there = FileExists(services_.files, path);
    services_.log.LogEvent(there ? "Loading from " + path : path + " not found. Setting null refresh date.");
    watched_.Add(path);
    if (there) LoadDB(path, true);
    if (!there || unreadFile_ == path) watched_.LastWasNotRead();
}

}  // namespace kaz
