#pragma once

#include "base/ErrorTrap.h"
#include "model/clsEvent.h"
#include "storage/EventChanges.h"
#include "storage/EventCollection.h"
#include "storage/EventMerge.h"
#include "storage/OverwrittenVersions.h"
#include "storage/SideFile.h"
#include "storage/Stores.h"
#include "storage/WatchedFiles.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

class EventFileReader;
class SharedFolder;

// What became of the file at the last look.
enum class FileState {
    Fine,        // it was read, or written; or it has never been there
    NotRead,     // it is there, but locked, denied, or on a disk that fails
    Damaged,     // it is there, but is no event file (any more); nothing is taken from it
    FolderAway,  // not even its folder is there
    NotBack,     // its folder was away from the start, and has come back without it
    Vanished,    // it went while the program runs; the next save writes it again
    SetAside,    // it went, and an old database beside it is to be converted at the next start
};

// The events of one file, in file order. Look-ups by code take the first match.
class clsDbXml {
public:
    explicit clsDbXml(const Stores& stores);

    void SetDBFilename(const std::string& fileName);
    const std::string& DBFilename() const { return fileName_; }

    // Whether a watched file's date differs from the one last seen, in either direction.
    bool DatabaseChanged() const;
    // A look at the file: reads it when it has changed, else what was saved is confirmed to be in it.
    void LoadDBIfChanged(const std::string& fileName);
    // Reads what somebody else has saved meanwhile, before something is made of what is in memory.
    void CatchUp();
    // Reads the file; without `append` it takes the place of what was in memory. When it is the file that was
    // read before, what is not saved comes on top of it, and is saved. A file that is there but cannot be
    // read is logged, leaves the memory as it was and keeps SaveDB from writing over it until it can be read.
    void LoadDB(const std::string& fileName, bool append = false);
    // Writes the whole collection, events marked deleted left out, after what somebody else has saved
    // meanwhile has been read: references to events do not outlast it. False when the file could not be
    // written; the old file is then whole and the memory unchanged.
    bool SaveDB();

    FileState State() const { return state_; }
    // Whether the memory holds what the file held. Not so after a load that failed.
    bool WasRead() const { return state_ == FileState::Fine || state_ == FileState::Vanished; }
    // Why the file was not read, as long as it is not.
    const std::optional<ErrorInfo>& ReadFault() const { return readFault_; }
    // Why the last save failed; nothing after one that did not.
    const std::optional<ErrorInfo>& SaveFault() const { return saveFault_; }
    // Whether the memory holds changes that the file has not taken yet.
    bool HasUnsaved() const;
    EventChanges Unsaved() const;
    // Adds what was unsaved in another memory of the same events, without saving. An event whose code another
    // one has by now gets a new one.
    void PutOnTop(const EventChanges& changes);
    // What was saved, in a file that cannot be read now: when it can be again, it may be without them.
    std::vector<clsEvent> Unseen() const;
    // Takes what was unseen in another memory, without saving: when the file was found to hold nothing, it is
    // put back, and counted; else what is missing is told as gone.
    std::size_t GiveBack(const std::vector<clsEvent>& unseen);

    // The other file of the same user. A new code is used in neither, and an event that moved there has not
    // gone. It outlives this database's use, and does the same for it.
    void PairWith(clsDbXml& other) { other_ = &other; }
    // Whether a backup of the file has events; asked when the file has not a single byte.
    void AskForBackup(std::function<bool()> hasEvents) { backupHasEvents_ = std::move(hasEvents); }
    // The file beside it, from which the events have their extras and to which those that are stored give
    // theirs. It outlives this database.
    void KeepBeside(SideFile& side) { side_ = &side; }
    // Gives the events what that file says now.
    void TakeExtras() {
        if (side_) events_.ChangeAll([&](std::vector<clsEvent>& events) { side_->GiveExtras(events); });
    }
    // Called with the events that a reload made disappear although no command of this program removed them.
    void OnGone(std::function<void(const std::vector<clsEvent>&)> gone) { onGone_ = std::move(gone); }
    // Called each time that events have come into the memory from a file or another memory; `changed` when
    // that was more than the first filling: somebody else has changed what was here.
    void OnLoad(std::function<void(bool changed)> loaded) { onLoad_ = std::move(loaded); }
    // Called with the events as they were and as they are, when the file of before was read anew.
    using Reloaded =
        std::function<void(const std::vector<clsEvent>& before, const std::vector<clsEvent>& now)>;
    void OnReload(Reloaded reloaded) { onReload_ = std::move(reloaded); }

    // Empties the memory and forgets the file, before another one takes its place.
    void Forget();
    // Whatever was expected of a file that is not there: it is that of a user without events, and the next
    // save makes it.
    void ExpectNoFile() {
        state_ = FileState::Fine;
        readFault_.reset();
    }
    // As long as the file is not there, SaveDB does not make it: its events are in an older file that could
    // not be read, and a new file without them would hide that one.
    void KeepFileMissing(bool keep = true) { missingFile_ = keep ? fileName_ : std::string(); }

    std::int32_t RecordCount() const { return static_cast<std::int32_t>(AllEvents().size()); }
    // Marks the event deleted, if there is one, and saves in any case.
    void DeleteRecord(std::string_view code) { DeleteRecords({std::string(code)}); }
    // Many with one save.
    void DeleteRecords(const std::vector<std::string>& codes);
    // The event itself, or null; valid until the collection changes.
    const clsEvent* ReadEvent(std::string_view code) const { return events_.Find(code); }
    // Takes the place of the event with the same code, at the end of the collection; an event without a code,
    // or with `forceNew`, gets a new one. Nothing is saved. Throws InternalError when every code is in use.
    void StoreRecord(clsEvent event, bool forceNew = false);
    // Many under the codes that they have, each in the place of the one with its code or at the end; one that
    // is marked deleted takes that one away. Nothing is saved.
    void StoreRecords(std::vector<clsEvent> events);
    // Promised: the program itself never calls it.
    void WipeDiskFile();
    void WipeRecordsByOwner(std::string_view owner);
    void SetAllToSingleUser();
    void WipeAllButThisOwner(std::string_view owner);
    void RenameOwner(std::string_view oldName, std::string_view newName);

    // Loads every other user's shared file that the list names and watches them all from then on. What is
    // saved afterwards goes to this user's own shared file.
    void LoadMultiple(const std::string& listFile);

    // The user in whose file the event came, as LoadMultiple found it in the list; "" for any other event.
    std::string SourceOf(const clsEvent& event) const;

    // Those of the users whose file could be read at the last look, or has never been there.
    const std::vector<std::string>& SourcesRead() const { return sourcesRead_; }

    // While on, loading drops shared events that are not meant for this user and gives the others the
    // category of this user's that has the same name. For files that other users wrote.
    void ForeignFileFilter(bool on) { foreignFileFilter_ = on; }
    // What follows every save while sharing is on; empty while it is off.
    void CopyToShared(std::function<void()> copy) { copyToShared_ = std::move(copy); }
    // The folder that keeps what a merge with somebody else's version of the file has to give up. Without one
    // it is given up.
    void KeepOverwrittenIn(std::string folder) { overwritten_.KeepIn(std::move(folder)); }
    // Keeps there the version of another that one of this program is about to replace.
    void KeepReplaced(const clsEvent& theirs) const {
        overwritten_.KeepEvents(fileName_, "changed by another", {theirs});
    }
    // In memory: marks the first event of each code as deleted, or every one of the owner.
    void MarkDeleted(const std::vector<std::string>& codes);
    void MarkRecordsByOwner(std::string_view owner);

    const std::vector<clsEvent>& AllEvents() const { return events_.All(); }
    // Runs `change` on all events, in memory. What it was given is not kept: a change that the database does
    // not know of would not be saved.
    template <class Change>
    auto ChangeEvents(Change change) {
        return events_.ChangeAll(std::move(change));
    }
    template <class Change>
    void ChangeEach(Change change) {
        ChangeEvents([&](std::vector<clsEvent>& events) {
            for (clsEvent& event : events)
                change(event);
        });
    }

private:
    static constexpr std::string_view kModule = "clsDbXml";

    bool IsOwner(const clsEvent& event, std::string_view owner) const;
    // The ones before.
    std::vector<clsEvent> Exchange(std::vector<clsEvent> events) {
        return ChangeEvents(
            [&](std::vector<clsEvent>& all) { return std::exchange(all, std::move(events)); });
    }
    std::optional<FileTime> FileDate() const { return watched_.DateOf(fileName_); }
    bool IsTaken(const std::string& code) const { return other_ && other_->events_.Holds(code); }
    EventCodes::IsTaken TakenElsewhere() const {
        return [this](const std::string& code) { return IsTaken(code); };
    }

    void Reload(bool fresh);
    void Append();
    void TellLoad(bool changed) {
        TakeExtras();
        if (onLoad_) onLoad_(changed);
    }
    void LookForMissing(bool fresh);
    void TakeIn(std::vector<clsEvent> file, bool fresh);
    void KeepWhatGivesWay(const EventMerge::Result& merged) const;
    void TellGone(std::vector<clsEvent> gone, const std::vector<clsEvent>& before);
    void CouldNotRead(FileState state, const ErrorInfo& error);
    void ReadFile(const std::string& path, std::vector<clsEvent>& events);
    void CheckRead(const EventFileReader& reader) const;
    void TellCut(const std::vector<clsEvent>& events);
    void GiveRepeatedNewCodes(std::vector<clsEvent>& events);

    bool MayWrite();
    bool KeepsUnknown();
    bool Write();
    bool WriteFile();
    bool FileHolds(std::uint64_t print);

    void ReadUsers(const SharedFolder& folder, const std::string& listFile);
    std::vector<clsEvent> LoadFrom(const std::string& user, const std::string& path);
    void TakeExtrasOf(const std::string& path, std::vector<clsEvent>& events);

    Stores stores_;
    std::string fileName_;
    EventCollection events_;
    EventMerge::Memory known_;
    bool unconfirmed_ = false;  // no look has found yet what was saved
    std::map<std::pair<std::string, int>, std::string>
        newCodes_;  // for repeated ones, until the file has them

    std::optional<FileTime> lastKnownDate_;
    bool isKnown_ = false;                      // the file was asked for, or written
    bool isThere_ = false;                      // the file, when it was last read or written
    std::optional<std::uint64_t> eventsPrint_;  // of the events that the file holds
    std::uint64_t contentPrint_ = 0;            // of its bytes
    bool isOurText_ = false;                    // the bytes are those that a save would write
    FileState state_ = FileState::Fine;
    std::optional<ErrorInfo> readFault_;
    std::optional<ErrorInfo> saveFault_;
    std::string toldFault_;
    std::ptrdiff_t toldCut_ = 0;  // descriptions
    std::string missingFile_;

    WatchedFiles watched_;            // empty until LoadMultiple
    std::vector<std::string> users_;  // as the list had them
    std::vector<std::string> sources_;
    std::vector<std::string> sourcesRead_;
    bool foreignFileFilter_ = false;
    std::function<void()> copyToShared_;
    OverwrittenVersions overwritten_;
    clsDbXml* other_ = nullptr;
    SideFile* side_ = nullptr;
    std::function<bool()> backupHasEvents_;
    std::function<void(const std::vector<clsEvent>&)> onGone_;
    std::function<void(bool)> onLoad_;
    Reloaded onReload_;
};

}  // namespace kaz
