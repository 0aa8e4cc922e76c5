#include "storage/clsDbXml.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/SafeFileWriter.h"
#include "storage/ErrorBatch.h"
#include "storage/EventFileReader.h"
#include "storage/EventXml.h"
#include "storage/SharedFolder.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kaz {

namespace {

constexpr std::string_view kModule = "clsDbXml";
// The owner of every event while there is one user only; on loading it becomes the current user's name.
constexpr std::string_view kSingleOwner = "Single";

void WriteEvents(SafeFileWriter& file, const std::vector<clsEvent>& events) {
    constexpr std::size_t kPiece = std::size_t{256} * 1024;
    constexpr std::size_t kUsualBlock = std::size_t{8} * 1024;
    std::string text;
    text.reserve(std::min(kPiece + kUsualBlock, (events.size() + 1) * kUsualBlock));
    text = EventXml::kProlog;
    for (const clsEvent& event : events) {
        if (!event.Deleted) EventXml::AppendBlock(text, event);
        if (text.size() < kPiece) continue;
        file.Write(text);
        text.clear();
    }
    file.Write(text);
}

}  // namespace

clsDbXml::clsDbXml(const StorageServices& services)
    : services_(services),
      codes_(services.clock, services.random),
      watched_(services.files, services.log) {}

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
    const std::string user = services_.settings.TextOr("Owner", "Not Set");
    for (;;) {
        if (events.size() == events.capacity()) {
            // Behind other files' events there are mostly more files to come, and each step moves all of
            // them.
            const std::size_t step = before ? 3 * events.size() : events.size() / 8;
            events.reserve(std::max(events.size() + step + 64, before + reader.EstimatedCount()));
        }
        const bool read = reader.Next(events.emplace_back());
        if (!read || !Admit(events.back(), user)) events.pop_back();
        if (!read) return;
    }
}

// What is done with every event that is read; false drops it.
bool clsDbXml::Admit(clsEvent& event, const std::string& user) const {
    if (event.Owner().empty() || event.Owner() == kSingleOwner) event.Owner(user);
    return !event.Deleted && (!foreignFileFilter_ || AdmitForeign(event, user));
}

// A shared event without a list of names is meant for everybody.
bool clsDbXml::AdmitForeign(clsEvent& event, const std::string& user) const {
    const CaseFolding& letters = services_.locale.Folding();
    if (event.SharedEvent && event.ShareWithSpecific && !event.NameInShared(user, letters)) return false;
    const std::string& category = event.SharedLayerName;
    // The name was written by somebody else and would become a line of the settings file.
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 32; };
    if (category.empty() || std::any_of(category.begin(), category.end(), isControl)) return true;
    const std::int16_t slot = services_.layers.SeekLayerIndex(category);
    if (slot >= 0) event.Layer(slot);
    return true;
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
    const bool kept = KeepUnreadVersion();
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

// False when there is such a version and it could not be kept; it is not written over then.
bool clsDbXml::KeepUnreadVersion() {
    const std::optional<FileTime> date = FileDate();
    if (overwrittenFolder_.empty() || !date || date == lastKnownDate_) return true;
    const std::string name = FileNameOf(fileName_);
    const std::string stem = WithExtension(name, "");
    const std::string time =
        FormatDate(services_.clock.Now(), "YYYY-MM-DD HH.NN.SS", services_.locale.Data());
    std::string kept = JoinPath(overwrittenFolder_, stem + " (changed by another, " + time + ")");
    // Two of them can be found within a second.
    if (FileExists(services_.files, kept + ".xml")) kept += " " + std::to_string(*date);
    ErrorTrap trap(services_.log, "SaveDB", kModule);
    const bool done = trap([&] {
        services_.files.CreateFolder(overwrittenFolder_);
        WriteWholeFile(services_.files, kept + ".xml", ReadWholeFile(services_.files, fileName_));
    });
    services_.log.LogEvent(fileName_ + " was changed by another program. " +
                           (done ? "Its version is kept as " + kept + ".xml" : "It is not written over."));
    return done;
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
        event.Owner(std::string(kSingleOwner));
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
    // Watched like the files that it names: a user who joins is seen at the next look.
    watched_.Clear();
    watched_.Add(listFile);

    const SharedFolder folder(services_.files, services_.settings, services_.log);
    const std::string me = services_.settings.TextOr("Owner", "Not Set");
    ErrorTrap trap(services_.log, "LoadMultiple", kModule);
    std::vector<std::string> users;
    trap([&] { users = folder.UsersOf(listFile); });
    for (const std::string& user : users) {
        services_.log.LogEvent("Found shared database " + user);
        if (StringsEqual(user, me, services_.locale.Folding()))
            services_.log.LogEvent("Not loading - belongs to current user (" + me + ")");
        else
            trap([&] { LoadWatched(folder.FileOf(user)); });
    }
    const std::string own = folder.FileOf(me);
    services_.log.LogEvent("Setting Database filename to " + own);
    fileName_ = own;
    lastKnownDate_ = FileDate();
}

void clsDbXml::LoadWatched(const std::string& path) {
    const bool there = FileExists(services_.files, path);
    services_.log.LogEvent(there ? "Loading from " + path : path + " not found. Setting null refresh date.");
    watched_.Add(path);
    if (there) LoadDB(path, true);
    if (!there || unreadFile_ == path) watched_.LastWasNotRead();
}

}  // namespace kaz
