#pragma once

#include "storage/clsDbXml.h"
#include "storage/clsSounds.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

// The event files from before the XML files: records of fixed length. The program reads such a file once, to
// hand its events to the XML database; the operations have the names and meanings that they have there. In
// memory the events are held by an XML database that has no file of its own.
class clsDB2 {
public:
    // All of them outlive the database. `sounds` gives the events their sound files, for which a record has
    // no room.
    clsDB2(const Stores& stores, clsSounds& sounds);

    void SetDBFilename(const std::string& fileName) { fileName_ = fileName; }
    const std::string& DBFilename() const { return fileName_; }

    bool DatabaseChanged() const;
    void LoadDBIfChanged(const std::string& fileName);
    // A file of two records and a half is two records, one of three and a half is four, the last filled up
    // with zeros. False when the file is there but could not be read; the memory is then as it was.
    bool LoadDB(const std::string& fileName, bool append = false);
    // Loads every other user's shared file of this format that the list names, in place of what was in
    // memory, and watches them all from then on; later saves go to the user's own.
    void LoadMultiple(const std::string& listFile);
    // False when the file could not be written; the old file is then whole.
    bool SaveDB();

    std::int32_t RecordCount() const { return memory_.RecordCount(); }
    void DeleteRecord(std::string_view code);
    const clsEvent* ReadEvent(std::string_view code) const { return memory_.ReadEvent(code); }
    void StoreRecord(clsEvent event, bool forceNew = false) {
        memory_.StoreRecord(std::move(event), forceNew);
    }
    // Promised: the program itself never calls this one and those of the file below.
    void WipeDiskFile();
    void WipeRecordsByOwner(std::string_view owner);
    void SetAllToSingleUser();
    void WipeAllButThisOwner(std::string_view owner);
    void RenameOwner(std::string_view oldName, std::string_view newName);
    const std::vector<clsEvent>& AllEvents() const { return memory_.AllEvents(); }

    // The number, counting from 1, of the record on disk with this code; -1 when there is none.
    std::int32_t SeekDiskRecord(std::string_view code);
    // Writes the event over its own record on disk, or behind the last one. False
    // when the file could not be written.
    bool WriteEventToFile(const clsEvent& event);
    // Adds the events to an XML database in memory; nothing is saved. No event is lost: one whose code is
    // empty or taken gets a new one. Texts that would tear the tagged file apart lose what would do so.
    void ExportToXML(clsDbXml& target);

private:
    static constexpr std::string_view kModule = "clsDB2";

    bool IsOwner(const clsEvent& event, std::string_view owner) const;
    void AddOwnerAndSound(clsEvent& event);
    std::optional<FileTime> FileDate() const { return watched_.DateOf(fileName_); }
    bool Write(const std::string& records);

    Stores stores_;
    clsSounds& sounds_;
    clsDbXml memory_;
    WatchedFiles watched_;  // empty until LoadMultiple
    std::string fileName_;
    std::optional<FileTime> lastKnownDate_;
};

}  // namespace kaz
