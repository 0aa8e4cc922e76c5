#include "storage/WatchedFiles.h"

#include "base/ErrorTrap.h"

#include <algorithm>

namespace kaz {

bool WatchedFiles::Changed() const {
    return std::any_of(watched_.begin(), watched_.end(),
                       [&](const Watched& file) { return DateOf(file.path) != file.date; });
}

std::optional<FileTime> WatchedFiles::DateOf(const std::string& path) const {
    try {
        return files_.ModificationTime(path);
    } catch (...) {
        log_.Report(CurrentError(), "DatabaseChanged", "WatchedFiles");
        return std::nullopt;
    }
}

}  // namespace kaz
