#pragma once

#include "model/clsEvent.h"
#include "storage/EventCodes.h"
#include "storage/OverwrittenVersions.h"
#include "storage/StorageServices.h"
#include "storage/WatchedFiles.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

// The events of one file, in file order. Look-ups by code take the first match.
class clsDbXml {
public:
    explicit clsDbXml(const StorageServices& services);

    void SetDBFilename(const std::string& fileName) { fileName_ = fileName; }
    const std::string& DBFilename() const { return fileName_; }

    // Whether a watched file's date differs from the one last seen, in either direction.
    bool DatabaseChanged() const;
    void LoadDBIfChanged(const std::string& fileName);
    // Reads the file; without `append` it takes the place of what was in memory. A file that is there but
    // cannot be read is logged, leaves the memory as it was and keeps SaveDB from writing over it until a
    // load succeeds.
    void LoadDB(const std::string& fileName, bool append = false);
    // Writes the whole collection, events marked deleted left out. False when the file could not be written;
    // the old file is then whole and the memory unchanged.
    bool SaveDB();
    // Whether the memory holds changes that the file has not taken yet.
    bool HasUnsaved() const { return unsaved_ || !waiting_.empty(); }
    // Empties the memory and forgets the file, before another one takes its place.
    void Forget();
    // As long as the file is not there, SaveDB does not make it: its events are in an older file that could
    // not be read, and a new file without them would hide that one.
    void KeepFileMissing() { missingFile_ = fileName_; }

    std::int32_t RecordCount() const { return static_cast<std::int32_t>(events_.size()); }
    // Marks the event deleted, if there is one, and saves in any case.
    void DeleteRecord(std::string_view code);
    // The event itself, or null; valid until the collection changes.
    clsEvent* ReadEvent(std::string_view code);
    // Takes the place of the event with the same code, at the end of the collection; an event without a code,
    // or with `forceNew`, gets a new one. Nothing is saved. Throws InternalError when every code is in use.
    void StoreRecord(clsEvent event, bool forceNew = false);
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

    // While on, loading drops shared events that are not meant for this user and gives the others the
    // category of this user's that has the same name. For files that other users wrote.
    void ForeignFileFilter(bool on) { foreignFileFilter_ = on; }
    // What follows every save while sharing is on; empty while it is off.
    void CopyToShared(std::function<void()> copy) { copyToShared_ = std::move(copy); }
    // The folder that keeps a version of the file which somebody else saved and this database would write
    // over without having read it. Without a folder it is written over.
    void KeepOverwrittenIn(std::string folder) { overwritten_.KeepIn(std::move(folder)); }
    // Marks every event of that owner as deleted, in memory.
    void MarkRecordsByOwner(std::string_view owner);

    std::vector<clsEvent>& AllEvents() {
        codes_.Forget();
        return events_;
    }
    const std::vector<clsEvent>& AllEvents() const { return events_; }

private:
    static constexpr std::string_view kModule = "clsDbXml";

    using Position = std::vector<clsEvent>::iterator;
    // An event that was stored while the file could not be read.
    struct Waiting {
        std::string code;
        bool isNew;
    };

    Position Find(std::string_view code);
    std::optional<FileTime> FileDate() const { return watched_.DateOf(fileName_); }
    void LoadFrom(const std::string& user, const std::string& path);
    void LoadWatched(const std::string& path);
    void ReadFile(std::vector<clsEvent>& events) const;
    void ReadEvents(std::vector<clsEvent>& events) const;
    void StoreWaiting(std::vector<clsEvent> before);
    bool MustNotWrite() const;
    bool WriteFile();

    StorageServices services_;
    std::string fileName_;
    std::vector<clsEvent> events_;
    EventCodes codes_;
    std::optional<FileTime> lastKnownDate_;
    std::string unreadFile_;  // the last load of it failed, so that it must not be written over
    std::string missingFile_;
    std::vector<Waiting> waiting_;
    bool unsaved_ = false;
    WatchedFiles watched_;  // empty until LoadMultiple
    std::vector<std::string> sources_;
    bool foreignFileFilter_ = false;
    std::function<void()> copyToShared_;
    OverwrittenVersions overwritten_;
};

}  // namespace kaz
