#pragma once

#include "platform/FileSystem.h"
#include "support/cSharedLogging.h"

#include <string>
#include <string_view>

namespace kaz {

// Of the files in the folder whose names begin so, leaves the newest and as many others as make `most`; names
// sort by their age.
void RemoveOldest(FileSystem& files, const std::string& folder, const std::string& beginning,
                  const std::string& newest, std::size_t most);

// Copies of files as they once were, beside the backups: "Events (WORD, TIME).xml". Of each file and word the
// newest few stay.
class KeptCopies {
public:
    // `files` and `log` outlive the object.
    KeptCopies(FileSystem& files, cSharedLogging& log, std::string folder, std::string_view word)
        : files_(files),
          log_(log),
          folder_(std::move(folder)),
          word_(word) {}

    // Where the copy of the file has its place. `time` sorts as text.
    std::string PathOf(const std::string& fileName, std::string_view time) const;
    // Copies the file, unless its copy of that time is there already; one that is not there needs none.
    // False, and told in the log, when it could not be copied.
    bool Keep(const std::string& fileName, std::string_view time) const noexcept;

private:
    static constexpr std::size_t kMost = 5;

    std::string BeginningOf(const std::string& fileName) const;

    FileSystem& files_;
    cSharedLogging& log_;
    std::string folder_;
    std::string word_;
};

}  // namespace kaz
