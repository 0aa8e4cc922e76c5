#pragma once

#include "base/ErrorTrap.h"
#include "model/clsEvent.h"
#include "platform/FileSystem.h"
#include "storage/SideLine.h"
#include "support/cSharedLogging.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

// The file beside the events, for what these have no room for: one entry a line, of whichever verb. Another
// program may write it at the same time, so each look and each save brings both together, line by line. Lines
// that are not understood stay as they are.
class SideFile {
public:
    using Lines = SideLines;

    SideFile(FileSystem& files, cSharedLogging& log) : files_(files), log_(log) {}

    // The side file of an event file.
    static std::string PathFor(std::string_view eventFile);

    // Goes on with the file at that path; what is unsaved of another one is forgotten.
    void Open(const std::string& path);
    const std::string& Path() const { return path_; }
    // The text of a backup of the file, "" without one; asked when the file is damaged and the memory holds
    // nothing that could take its place.
    void AskForBackup(std::function<std::string()> backup) { backup_ = std::move(backup); }
    // How many lines such a text has; 0 when it is damaged, or has been cut.
    static std::size_t CountIn(std::string_view text);
    // Reads the file when it has changed since. True when its lines are others now. A file that cannot be
    // read is logged, leaves the memory as it was and keeps Save from writing over it.
    bool Refresh();
    // Whether the memory holds what the file held; a file that is not there holds nothing.
    bool WasRead() const { return wasRead_; }
    // Whether there was such a file when it was first looked at.
    bool WasThere() const { return wasThere_; }

    const Lines& All() const { return lines_; }
    // Changes with each change of the lines.
    unsigned Version() const { return version_; }
    void Add(SideLine line);
    void Remove(const SideLine& line);
    // All entries with that verb that begin with this key.
    std::vector<SideLine> Of(std::string_view verb, const SideKey& key) const;

    // The entries that make up the event's extras, under its code: those in the file now become these. When
    // it takes the place of `before`, all else that is told of that one goes over to it.
    void Put(const clsEvent& event, const clsEvent* before);
    // Gives each event what the file says of it.
    void GiveExtras(std::vector<clsEvent>& events) const;

    // Whether the memory holds what the file has not taken yet.
    bool HasUnsaved() const;
    // Writes what is unsaved, once the file of the events is there: a folder that is synchronised can be
    // there before its files. False when it could not be written; it stays in memory then.
    bool Save();
    // Why the last save or look failed; nothing after one that did not.
    const std::optional<ErrorInfo>& Fault() const { return fault_; }

    // What is unsaved, as text, and taken over from such a text.
    std::string UnsavedText() const;
    void TakeUnsaved(std::string_view text);

private:
    std::vector<SideLine> OfCode(const std::string& code) const;
    bool EventsAreThere() const;
    void Read();
    void TakeIn(std::string_view text);
    void Vanished();
    void PutDamagedAside();
    void TakeBackup();
    void Failed(const char* procedure);

    FileSystem& files_;
    cSharedLogging& log_;
    std::function<std::string()> backup_;
    std::string path_;
    Lines lines_;
    Lines saved_;                // as the file was last known to be
    std::set<std::string> odd_;  // lines of another form
    std::string head_;
    std::optional<FileTime> date_;
    bool looked_ = false;
    bool wasRead_ = false;
    bool wasThere_ = false;
    bool isThere_ = false;
    unsigned version_ = 0;
    unsigned savedVersion_ = 0;  // at which the memory was what the file holds
    std::optional<ErrorInfo> fault_;
    std::string told_;
    mutable Lines toldLeft_;  // whole texts whose field has changed
};

// The entries of another user's side file, as far as they can be read; none without one.
SideFile::Lines ReadSideLines(FileSystem& files, const std::string& path);
// Writes a side file anew, unless it holds just these entries. Throws as SafeFileWriter does.
void WriteSideLines(FileSystem& files, const std::string& path, const SideFile::Lines& lines);

}  // namespace kaz
