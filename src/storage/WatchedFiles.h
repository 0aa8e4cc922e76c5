#pragma once

#include "platform/FileSystem.h"
#include "support/cSharedLogging.h"

#include <optional>
#include <string>
#include <vector>

namespace kaz {

// Files that other users change, each with the date at which it was last read.
class WatchedFiles {
public:
    WatchedFiles(const FileSystem& files, cSharedLogging& log) : files_(files), log_(log) {}

    void Clear() { watched_.clear(); }
    bool Empty() const { return watched_.empty(); }
    // Watches the file from the date that it has now; one that is not there is waited for.
    void Add(const std::string& path) { watched_.push_back({path, DateOf(path)}); }
    // The file added last counts as changed as long as it is there, so that the next look tries it again.
    void LastWasNotRead() { watched_.back().date.reset(); }
    // Whether one of them has another date now, in either direction.
    bool Changed() const;

    // Nothing when there is no such file.
    std::optional<FileTime> DateOf(const std::string& path) const;

private:
    struct Watched {
        std::string path;
        std::optional<FileTime> date;
    };

    const FileSystem& files_;
    cSharedLogging& log_;
    std::vector<Watched> watched_;
};

}  // namespace kaz
