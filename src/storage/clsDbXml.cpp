#include "storage/clsDbXml.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/SafeFileWriter.h"
#include "storage/ContentHash.h"
#include "storage/EventFileWriter.h"
#include "storage/Owner.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kaz {

clsDbXml::clsDbXml(const Stores& stores)
    : stores_(stores),
      events_(stores.platform.clock, stores.platform.random),
      watched_(stores.platform.files, stores.log),
      overwritten_(stores) {}

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
    if (!watched_.Empty()) return watched_.Changed();
    // A folder that is back without the file changes no date.
    const bool isBack = state_ == FileState::FolderAway &&
                        stores_.platform.files.Kind(FolderOf(fileName_)) != PathKind::Missing;
    return isBack || FileDate() != lastKnownDate_;
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
        known_.confirmed = known_.saved = KnownEvents(AllEvents());
    }
    Reload(fresh);
    if (!fresh && WasRead() && HasUnsaved()) SaveDB();
}

void clsDbXml::Forget() {
    Exchange({});
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
    for (const clsEvent& event : AllEvents()) {
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
        const clsEvent* there = ReadEvent(event.IDCode);
        const bool another =
            there && !there->Deleted && there->Desc() != event.Desc() && there->DueDate() != event.DueDate();
        clsEvent copy = event;
        copy.Deleted = false;
        StoreRecord(std::move(copy), another || IsTaken(event.IDCode));
    }
    for (const clsEvent& event : changes.removed) {
        const clsEvent* there = ReadEvent(event.IDCode);
        if (there && EventDigest(*there) == EventDigest(event)) MarkDeleted({event.IDCode});
    }
    if (!changes.Empty()) TellLoad(true);
}

std::vector<clsEvent> clsDbXml::Unseen() const {
    std::vector<clsEvent> unseen;
    if (!readFault_) return unseen;
    for (const clsEvent& event : AllEvents())
        if (!event.Deleted && known_.saved.Find(event.IDCode)) unseen.push_back(event);
    return unseen;
}

std::size_t clsDbXml::GiveBack(const std::vector<clsEvent>& unseen) {
    if (known_.confirmed.Entries().empty()) {
        PutOnTop({unseen, {}});
        return unseen.size();
    }
    std::vector<clsEvent> gone;
    for (const clsEvent& event : unseen)
        if (!ReadEvent(event.IDCode)) gone.push_back(event);
    if (!gone.empty()) TellGone(std::move(gone), unseen);
    return 0;
}

bool clsDbXml::SaveDB() {
    if (watched_.Empty() && isKnown_ && (FileDate() != lastKnownDate_ || !WasRead())) Reload(false);
    const bool saved = MayWrite() && KeepsUnknown() && Write();
    if (saved) saveFault_.reset();
    // Behind the events: an event without its entry comes once too often.
    if (saved && side_) side_->Save();
    if (copyToShared_) copyToShared_();
    return saved;
}

bool clsDbXml::MayWrite() {
    const bool kept = !missingFile_.empty() && missingFile_ == fileName_ &&
                      stores_.platform.files.Kind(fileName_) == PathKind::Missing;
    if (WasRead() && !kept) return true;
    saveFault_ = readFault_.value_or(
        ErrorInfo{static_cast<int>(ErrorNumber::FileNotFound), DescriptionOf(ErrorNumber::FileNotFound)});
    stores_.log.LogEvent("Unable to write events. " + fileName_ + " could not be read.");
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
    KnownEvents now(AllEvents());
    const std::uint64_t print = now.Print(AllEvents());
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
        WriteEvents(AllEvents(), [&](std::string_view piece) { text.Add(piece); });
        isOurText_ = text.Value() == contentPrint_;
    }
    return isOurText_;
}

bool clsDbXml::WriteFile() {
    std::optional<SafeFileWriter> file;
    try {
        if (fileName_.empty()) throw RuntimeError(ErrorNumber::PathFileAccess);
        file.emplace(stores_.platform.files, fileName_);
        WriteEvents(AllEvents(), [&](std::string_view piece) { file->Write(piece); });
        file->Commit();
        // That of our own text, since another may be in its place already.
        lastKnownDate_ = file->Date();
        return true;
    } catch (...) {
        const ErrorInfo error = CurrentError();
        const bool denied = error.number == static_cast<int>(ErrorNumber::PermissionDenied);
        if (!file) stores_.log.LogEvent("Output file readonly. Unable to write events.");
        if (file || !denied) stores_.log.Report(error, "SaveDB", kModule);
        saveFault_ = error;
        return false;
    }
}

void clsDbXml::DeleteRecords(const std::vector<std::string>& codes) {
    MarkDeleted(codes);
    SaveDB();
}

bool clsDbXml::IsOwner(const clsEvent& event, std::string_view owner) const {
    return StringsEqual(event.Owner(), owner, stores_.platform.locale.Folding());
}

void clsDbXml::MarkDeleted(const std::vector<std::string>& codes) {
    std::unordered_set<std::string_view> doomed(codes.begin(), codes.end());
    ChangeEach([&](clsEvent& event) {
        if (doomed.erase(event.IDCode) > 0) event.Deleted = true;
    });
}

void clsDbXml::StoreRecord(clsEvent event, bool forceNew) {
    if (forceNew || event.IDCode.empty()) event.IDCode = events_.UnusedCode(TakenElsewhere());
    if (side_) side_->Put(event, events_.Holds(event.IDCode) ? events_.Find(event.IDCode) : nullptr);
    events_.Store(std::move(event));
}

void clsDbXml::StoreRecords(std::vector<clsEvent> events) {
    ChangeEvents([&](std::vector<clsEvent>& all) {
        std::unordered_map<std::string, std::size_t> places;
        places.reserve(all.size() + events.size());
        for (std::size_t place = 0; place < all.size(); ++place)
            places.emplace(all[place].IDCode, place);
        for (clsEvent& event : events) {
            const auto [place, isNew] = places.emplace(event.IDCode, all.size());
            if (side_ && !event.Deleted) side_->Put(event, isNew ? nullptr : &all[place->second]);
            if (isNew)
                all.push_back(std::move(event));
            else
                all[place->second] = std::move(event);
        }
    });
}

void clsDbXml::WipeDiskFile() {
    ErrorTrap trap(stores_.log, "WipeDiskFile", kModule);
    trap([&] {
        if (stores_.platform.files.Kind(fileName_) != PathKind::Missing)
            stores_.platform.files.Delete(fileName_);
        isThere_ = false;
    });
}

void clsDbXml::WipeRecordsByOwner(std::string_view owner) {
    LoadDB(fileName_);
    MarkRecordsByOwner(owner);
    SaveDB();
}

void clsDbXml::MarkRecordsByOwner(std::string_view owner) {
    ChangeEach([&](clsEvent& event) {
        if (IsOwner(event, owner)) event.Deleted = true;
    });
}

void clsDbXml::SetAllToSingleUser() {
    ChangeEach([](clsEvent& event) { event.Owner(std::string(kSingleUser)); });
    SaveDB();
}

void clsDbXml::WipeAllButThisOwner(std::string_view owner) {
    if (owner.empty()) return;
    ChangeEach([&](clsEvent& event) {
        if (!IsOwner(event, owner)) event.Deleted = true;
    });
    SaveDB();
}

void clsDbXml::RenameOwner(std::string_view oldName, std::string_view newName) {
    ChangeEach([&](clsEvent& event) {
        if (IsOwner(event, oldName)) event.Owner(std::string(newName));
    });
    SaveDB();
}

}  // namespace kaz
