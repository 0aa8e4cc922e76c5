#include "storage/clsDbXml.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/SafeFileWriter.h"
#include "storage/ContentHash.h"
#include "storage/ErrorBatch.h"
#include "storage/EventFileReader.h"
#include "storage/EventFileWriter.h"
#include "storage/EventIntake.h"
#include "storage/Owner.h"
#include "storage/SharedFolder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

// A file that is there and can be read, but is none of ours any more.
struct DamagedFile : RuntimeError {
    explicit DamagedFile(std::string what) : RuntimeError(ErrorNumber::TypeMismatch, std::move(what)) {}
};

// Changes with whatever changes the file's text, but for what the text says in another way than we do.
std::uint64_t PrintOf(const KnownEvents& known, const std::vector<clsEvent>& events) {
    ContentHash print;
    for (const KnownEvents::Entry& entry : known.Entries()) {
        print.Add(entry.code);
        print.Add(entry.digest.words);
        print.Add(entry.digest.dates);
    }
    for (const clsEvent& event : events)
        if (!event.Deleted) print.Add(static_cast<std::uint32_t>(event.DaysLeft()));
    return print.Value();
}

}  // namespace

clsDbXml::clsDbXml(const StorageServices& services)
    : services_(services),
      codes_(services.clock, services.random),
      watched_(services.files, services.log),
      overwritten_(services) {}

void clsDbXml::SetDBFilename(const std::string& fileName) {
    if (fileName == fileName_) return;
    // Of the other file nothing is known, and what is in memory is nowhere in it.
    fileName_ = fileName;
    known_ = {};
    unconfirmed_ = false;
    isKnown_ = isThere_ = false;
    lastKnownDate_.reset();
    eventsPrint_.reset();
    state_ = FileState::Fine;
}

void clsDbXml::CatchUp() {
    if (DatabaseChanged()) LoadDB(fileName_);
}

bool clsDbXml::DatabaseChanged() const {
    return watched_.Empty() ? FileDate() != lastKnownDate_ : watched_.Changed();
}

void clsDbXml::LoadDBIfChanged(const std::string& fileName) {
    if (DatabaseChanged()) {
        LoadDB(fileName);
    } else if (unconfirmed_) {
        known_.confirmed = known_.saved;
        known_.former.clear();
        known_.again.clear();
        unconfirmed_ = false;
    }
}

void clsDbXml::LoadDB(const std::string& fileName, bool append) {
    const bool fresh = fileName != fileName_;
    if (append) {
        fileName_ = fileName;
        Append();
        return;
    }
    if (fresh) {
        // Nothing of the events of another file is to be brought into this one, but what is stored from now
        // on is, as soon as the file can be read.
        SetDBFilename(fileName);
        known_.confirmed = known_.saved = KnownEvents(events_);
    }
    Reload(fresh);
    if (!fresh && WasRead() && HasUnsaved()) SaveDB();
}

void clsDbXml::Append() {
    lastKnownDate_ = FileDate();
    try {
        std::vector<clsEvent> file;
        if (lastKnownDate_ || services_.files.Kind(fileName_) != PathKind::Missing) ReadFile(fileName_, file);
        codes_.Forget();
        std::move(file.begin(), file.end(), std::back_inserter(events_));
        known_.confirmed = known_.saved = KnownEvents(events_);
        eventsPrint_.reset();
        state_ = FileState::Fine;
    } catch (...) {
        CouldNotRead(FileState::NotRead, CurrentError());
    }
}

// Brings the memory up to what the file holds now. With `fresh`, nothing of the memory stays.
void clsDbXml::Reload(bool fresh) {
    isKnown_ = true;
    lastKnownDate_ = FileDate();
    try {
        if (!lastKnownDate_) {
            // A folder that is gone, such as a share without its network, is no empty database.
            const std::string folder = FolderOf(fileName_);
            if (!folder.empty() && services_.files.Kind(folder) == PathKind::Missing)
                throw RuntimeError(ErrorNumber::PathNotFound);
            if (services_.files.Kind(fileName_) == PathKind::Missing) {
                LookForMissing(fresh);
                return;
            }
        }
        std::vector<clsEvent> file;
        ReadFile(fileName_, file);
        GiveRepeatedNewCodes(file);
        TakeIn(std::move(file), fresh);
        isThere_ = true;
        state_ = FileState::Fine;
        readFault_.reset();
        toldFault_.clear();
    } catch (const DamagedFile& damage) {
        CouldNotRead(FileState::Damaged, {static_cast<int>(damage.Number()), damage.Description()});
    } catch (...) {
        const ErrorInfo error = CurrentError();
        const bool away = error.number == static_cast<int>(ErrorNumber::PathNotFound);
        CouldNotRead(away ? FileState::FolderAway : FileState::NotRead, error);
    }
}

// The folder is there, but no file in it.
void clsDbXml::LookForMissing(bool fresh) {
    eventsPrint_.reset();
    if (!isThere_ && (state_ == FileState::FolderAway || state_ == FileState::NotBack)) {
        // A synchronised folder is there before its files.
        state_ = FileState::NotBack;
        readFault_ = {static_cast<int>(ErrorNumber::FileNotFound), DescriptionOf(ErrorNumber::FileNotFound)};
        return;
    }
    readFault_.reset();
    if (!isThere_) {
        TakeIn({}, fresh);
        state_ = FileState::Fine;
    } else if (FileExists(services_.files, WithExtension(fileName_, ".dat"))) {
        state_ = FileState::SetAside;
    } else {
        // The memory is the last good copy.
        known_ = {};
        unconfirmed_ = false;
        state_ = FileState::Vanished;
    }
}

void clsDbXml::TakeIn(std::vector<clsEvent> file, bool fresh) {
    KnownEvents known(file);
    eventsPrint_ = PrintOf(known, file);
    isOurText_ = false;
    std::vector<clsEvent> before;
    EventMerge::Result merged;
    if (fresh) {
        merged.events = std::move(file);
    } else {
        merged = EventMerge::Run(std::move(file), events_, known_);
        KeepWhatGivesWay(merged);
        before = std::move(events_);
    }
    codes_.Forget();
    events_ = std::move(merged.events);
    known_.confirmed = known_.saved = std::move(known);
    known_.former.clear();
    unconfirmed_ = false;
    for (clsEvent& event : merged.newCodes)
        StoreRecord(std::move(event), true);
    if (!merged.gone.empty()) TellGone(std::move(merged.gone), before);
    if (!fresh && onReload_) onReload_();
}

void clsDbXml::KeepWhatGivesWay(const EventMerge::Result& merged) const {
    if (!merged.yielded.empty())
        overwritten_.KeepEvents(fileName_, "changed here and by another", merged.yielded);
    if (merged.hidesTheirs && !overwritten_.Keep(fileName_))
        throw RuntimeError(ErrorNumber::PathFileAccess, "The version of another program cannot be kept");
}

void clsDbXml::TellGone(std::vector<clsEvent> gone, const std::vector<clsEvent>& before) {
    if (other_) {
        if (other_->DatabaseChanged()) other_->Reload(false);
        std::unordered_set<std::string_view> codes;
        std::unordered_set<std::uint64_t> words;
        for (const clsEvent& event : other_->events_) {
            if (event.Deleted) continue;
            codes.insert(event.IDCode);
            words.insert(EventDigest(event).words);
        }
        std::erase_if(gone, [&](const clsEvent& event) {
            return codes.contains(event.IDCode) || words.contains(EventDigest(event).words);
        });
    }
    if (gone.empty()) return;
    services_.log.LogEvent(std::to_string(gone.size()) + " events are gone from " + fileName_ +
                           ", removed by another program");
    overwritten_.KeepEvents(fileName_, "before events went", before);
    if (onGone_) onGone_(gone);
}

// Told once for each reason, since every tick tries again.
void clsDbXml::CouldNotRead(FileState state, const ErrorInfo& error) {
    std::string reason = std::to_string(error.number) + fileName_ + error.description;
    if (std::exchange(toldFault_, reason) != reason) {
        services_.log.Report(error, "LoadDB", kModule);
        services_.log.LogEvent("Unable to read events from " + fileName_);
    }
    state_ = state;
    readFault_ = error;
    // Without a date the file counts as changed, so that the next look at it tries again.
    lastKnownDate_.reset();
}

// Adds the file's events, or when one cannot be read, none.
void clsDbXml::ReadFile(const std::string& path, std::vector<clsEvent>& events) {
    const auto file = services_.files.OpenForReading(path);
    ErrorBatch errors(services_.log);
    EventFileReader reader(*file, services_.locale.Data(), errors);
    const EventIntake intake(services_, foreignFileFilter_);
    for (;;) {
        if (events.size() == events.capacity())
            events.reserve(std::max(events.size() + events.size() / 8 + 64, reader.EstimatedCount()));
        const bool read = reader.Next(events.emplace_back());
        if (!read || !intake.Admit(events.back())) events.pop_back();
        if (!read) break;
    }
    CheckRead(reader);
    contentPrint_ = reader.ContentPrint();
}

void clsDbXml::CheckRead(const EventFileReader& reader) const {
    if (const std::string fault = reader.Fault(); !fault.empty()) throw DamagedFile("The file " + fault);
    if (!reader.IsEmpty()) return;
    const bool hadEvents = isThere_ && !known_.confirmed.Entries().empty();
    if (hadEvents || (backupHasEvents_ && backupHasEvents_())) throw DamagedFile("The file is empty");
}

// A file of one user holds no code twice. The same place gets the same code at each reading, until it stands
// in the file.
void clsDbXml::GiveRepeatedNewCodes(std::vector<clsEvent>& events) {
    std::map<std::pair<std::string, int>, std::string> given;
    std::map<std::string, int> times;
    codes_.Forget();
    for (const std::size_t place : EventCodes::Repeated(events)) {
        clsEvent& event = events[place];
        const std::pair key(event.IDCode, ++times[event.IDCode]);
        const auto before = newCodes_.find(key);
        const bool known = before != newCodes_.end() && !codes_.MayHold(events, before->second);
        event.IDCode = known ? before->second : UnusedCode(events);
        if (!known)
            services_.log.LogEvent("The code " + key.first + " is in " + fileName_ +
                                   " more than once. One of the events gets the code " + event.IDCode);
        given[key] = event.IDCode;
        codes_.Forget();
    }
    newCodes_ = std::move(given);
}

void clsDbXml::Forget() {
    events_.clear();
    codes_.Forget();
    SetDBFilename({});
    newCodes_.clear();
    readFault_.reset();
    saveFault_.reset();
    toldFault_.clear();
    missingFile_.clear();
    watched_.Clear();
    users_.clear();
    sources_.clear();
}

bool clsDbXml::HasUnsaved() const {
    if (!watched_.Empty()) return false;
    return state_ == FileState::Vanished || !known_.saved.AreAllOf(events_);
}

EventChanges clsDbXml::Unsaved() const {
    EventChanges changes;
    if (!watched_.Empty()) return changes;
    std::unordered_map<std::string_view, const clsEvent*> here;
    for (const clsEvent& event : events_) {
        if (const auto [there, isNew] = here.emplace(event.IDCode, &event); !isNew && !event.Deleted)
            there->second = &event;
        const EventDigest* saved = known_.saved.Find(event.IDCode);
        if (!event.Deleted && (!saved || *saved != EventDigest(event))) changes.stored.push_back(event);
    }
    for (const KnownEvents::Entry& entry : known_.saved.Entries()) {
        const auto found = here.find(entry.code);
        if (found != here.end() && !found->second->Deleted) continue;
        clsEvent& removed = changes.removed.emplace_back();
        if (found != here.end()) removed = *found->second;
        removed.IDCode = entry.code;
        removed.Deleted = false;
    }
    return changes;
}

void clsDbXml::PutOnTop(const EventChanges& changes) {
    for (const clsEvent& event : changes.stored) {
        const auto there = Find(event.IDCode);
        const bool another = there != events_.end() && !there->Deleted && there->Desc() != event.Desc() &&
                             there->DueDate() != event.DueDate();
        clsEvent copy = event;
        copy.Deleted = false;
        StoreRecord(std::move(copy), another || IsTaken(event.IDCode));
    }
    for (const clsEvent& event : changes.removed) {
        const auto there = Find(event.IDCode);
        if (there != events_.end() && EventDigest(*there) == EventDigest(event)) there->Deleted = true;
    }
}

bool clsDbXml::SaveDB() {
    if (watched_.Empty() && isKnown_ && (FileDate() != lastKnownDate_ || !WasRead())) Reload(false);
    const bool saved = MayWrite() && KeepsUnknown() && Write();
    if (saved) saveFault_.reset();
    if (copyToShared_) copyToShared_();
    return saved;
}

bool clsDbXml::MayWrite() {
    const bool kept = !missingFile_.empty() && missingFile_ == fileName_ &&
                      services_.files.Kind(fileName_) == PathKind::Missing;
    if (WasRead() && !kept) return true;
    saveFault_ = readFault_.value_or(
        ErrorInfo{static_cast<int>(ErrorNumber::FileNotFound), DescriptionOf(ErrorNumber::FileNotFound)});
    services_.log.LogEvent("Unable to write events. " + fileName_ + " could not be read.");
    return false;
}

// A file of which nobody has asked what is in it is replaced.
bool clsDbXml::KeepsUnknown() {
    if (isKnown_ || !FileDate() || overwritten_.Keep(fileName_)) return true;
    saveFault_ = {static_cast<int>(ErrorNumber::PathFileAccess),
                  "The version of another program cannot be kept"};
    return false;
}

bool clsDbXml::Write() {
    KnownEvents now(events_);
    const std::uint64_t print = PrintOf(now, events_);
    if (FileHolds(print)) return true;
    if (!WriteFile()) return false;
    if (unconfirmed_)
        for (const KnownEvents::Entry& entry : known_.saved.Entries())
            if (const EventDigest* digest = now.Find(entry.code); !digest || *digest != entry.digest)
                known_.former.emplace(entry.code, entry.digest);
    known_.saved = std::move(now);
    unconfirmed_ = true;
    eventsPrint_ = print;
    isOurText_ = true;
    isKnown_ = isThere_ = true;
    state_ = FileState::Fine;
    return true;
}

// Whether a save would write what stands there already.
bool clsDbXml::FileHolds(std::uint64_t print) {
    if (!lastKnownDate_ || eventsPrint_ != print) return false;
    if (!isOurText_) {
        ContentHash text;
        WriteEvents(events_, [&](std::string_view piece) { text.Add(piece); });
        isOurText_ = text.Value() == contentPrint_;
    }
    return isOurText_;
}

bool clsDbXml::WriteFile() {
    std::optional<SafeFileWriter> file;
    try {
        if (fileName_.empty()) throw RuntimeError(ErrorNumber::PathFileAccess);
        file.emplace(services_.files, fileName_);
        WriteEvents(events_, [&](std::string_view piece) { file->Write(piece); });
        file->Commit();
        // That of our own text, since another may be in its place already.
        lastKnownDate_ = file->Date();
        return true;
    } catch (...) {
        const ErrorInfo error = CurrentError();
        const bool denied = error.number == static_cast<int>(ErrorNumber::PermissionDenied);
        if (!file) services_.log.LogEvent("Output file readonly. Unable to write events.");
        if (file || !denied) services_.log.Report(error, "SaveDB", kModule);
        saveFault_ = error;
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

void clsDbXml::DeleteRecords(const std::vector<std::string>& codes) {
    std::unordered_set<std::string_view> doomed(codes.begin(), codes.end());
    for (clsEvent& event : events_)
        if (doomed.erase(event.IDCode) > 0) event.Deleted = true;
    SaveDB();
}

void clsDbXml::StoreRecord(clsEvent event, bool forceNew) {
    bool isNew = forceNew || event.IDCode.empty();
    if (isNew) {
        event.IDCode = UnusedCode(events_);
    } else {
        const auto old = codes_.MayHold(events_, event.IDCode) ? Find(event.IDCode) : events_.end();
        isNew = old == events_.end();
        if (!isNew) events_.erase(old);
    }
    if (isNew) codes_.Added(event.IDCode);
    events_.push_back(std::move(event));
}

std::string clsDbXml::UnusedCode(const std::vector<clsEvent>& events) {
    return codes_.Unused(events, [this](const std::string& code) { return IsTaken(code); });
}

bool clsDbXml::IsTaken(const std::string& code) {
    return other_ && other_->codes_.MayHold(other_->events_, code) &&
           other_->Find(code) != other_->events_.end();
}

void clsDbXml::WipeDiskFile() {
    ErrorTrap trap(services_.log, "WipeDiskFile", kModule);
    trap([&] {
        if (services_.files.Kind(fileName_) != PathKind::Missing) services_.files.Delete(fileName_);
        isThere_ = false;
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
    // Watched like the files that it names: a user who joins is seen at the next look.
    watched_.Clear();
    watched_.Add(listFile);
    const SharedFolder folder(services_.files, services_.settings, services_.log);
    const std::string me = CurrentOwner(services_.settings);
    ReadUsers(folder, listFile);

    std::vector<clsEvent> events;
    std::vector<std::string> sources;
    ErrorTrap trap(services_.log, "LoadMultiple", kModule);
    for (const std::string& user : users_) {
        services_.log.LogEvent("Found shared database " + user);
        if (StringsEqual(user, me, services_.locale.Folding())) {
            services_.log.LogEvent("Not loading - belongs to current user (" + me + ")");
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
    codes_.Forget();
    events_ = std::move(events);
    sources_ = std::move(sources);
    const std::string own = folder.FileOf(me);
    services_.log.LogEvent("Setting Database filename to " + own);
    fileName_ = own;
    lastKnownDate_ = FileDate();
    if (onReload_) onReload_();
}

// A list that cannot be read now is that of the last time.
void clsDbXml::ReadUsers(const SharedFolder& folder, const std::string& listFile) {
    ErrorTrap trap(services_.log, "LoadMultiple", kModule);
    if (!trap([&] { users_ = folder.UsersOf(listFile); })) watched_.LastWasNotRead();
}

// And likewise the user's events.
std::vector<clsEvent> clsDbXml::LoadFrom(const std::string& user, const std::string& path) {
    watched_.Add(path);
    const PathKind kind = services_.files.Kind(path);
    services_.log.LogEvent(kind == PathKind::File ? "Loading from " + path
                                                  : path + " not found. Setting null refresh date.");
    std::vector<clsEvent> events;
    try {
        if (kind != PathKind::Missing)
            ReadFile(path, events);
        else if (!FolderExists(services_.files, FolderOf(path)))
            throw RuntimeError(ErrorNumber::PathNotFound);
    } catch (...) {
        services_.log.Report(CurrentError(), "LoadDB", kModule);
        services_.log.LogEvent("Unable to read events from " + path);
        watched_.LastWasNotRead();
        events.clear();
        std::copy_if(events_.begin(), events_.end(), std::back_inserter(events),
                     [&](const clsEvent& event) { return SourceOf(event) == user; });
    }
    return events;
}

std::string clsDbXml::SourceOf(const clsEvent& event) const {
    const auto position = static_cast<std::size_t>(event.Source) - 1;
    return position < sources_.size() ? sources_[position] : std::string();
}

}  // namespace kaz
