#pragma once

#include "model/clsEvent.h"
#include "storage/Stores.h"

#include <string>
#include <utility>
#include <vector>

namespace kaz {

// Keeps what a merge of two versions of an event file has to give up, a bounded number of versions.
class OverwrittenVersions {
public:
    explicit OverwrittenVersions(const Stores& stores) : stores_(stores) {}

    // Without a folder nothing is kept.
    void KeepIn(std::string folder) { folder_ = std::move(folder); }
    // Copies the file, which somebody else saved, under a name with the time, and
    // logs it. False when that failed.
    bool Keep(const std::string& fileName) const;
    // Writes events of the file under a name with the reason and the time, and
    // logs it. False when that failed.
    bool KeepEvents(const std::string& fileName, const std::string& reason,
                    const std::vector<clsEvent>& events) const;

private:
    // A path that no version has yet.
    std::string PathFor(const std::string& fileName, const std::string& reason) const;
    void DeleteOldest(const std::string& fileName, const std::string& reason) const;

    Stores stores_;
    std::string folder_;
};

}  // namespace kaz
