#pragma once

#include "storage/StorageServices.h"

#include <string>
#include <utility>

namespace kaz {

// Keeps the versions of a file that somebody else saved and that would be written over without having been
// read.
class OverwrittenVersions {
public:
    explicit OverwrittenVersions(const StorageServices& services) : services_(services) {}

    // Without a folder nothing is kept.
    void KeepIn(std::string folder) { folder_ = std::move(folder); }
    // Copies the file, which has that date, under a name with the time, and logs it. False when that failed.
    bool Keep(const std::string& fileName, FileTime date) const;

private:
    StorageServices services_;
    std::string folder_;
};

}  // namespace kaz
