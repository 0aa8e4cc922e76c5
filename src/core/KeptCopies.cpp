#include "core/KeptCopies.h"

#include "platform/Files.h"

#include <algorithm>
#include <vector>

namespace kaz {

void RemoveOldest(FileSystem& files, const std::string& folder, const std::string& beginning,
                  const std::string& newest, std::size_t most) {
    std::vector<std::string> older;
    for (const std::string& name : files.FilesIn(folder))
        if (name.starts_with(beginning) && name != newest) older.push_back(name);
    std::sort(older.begin(), older.end());
    for (std::size_t i = 0; i + most <= older.size(); ++i)
        files.Delete(JoinPath(folder, older[i]));
}

std::string KeptCopies::BeginningOf(const std::string& fileName) const {
    return WithExtension(FileNameOf(fileName), "") + " (" + word_ + ", ";
}

std::string KeptCopies::PathOf(const std::string& fileName, std::string_view time) const {
    const std::string name = FileNameOf(fileName);
    const std::string extension = name.substr(WithExtension(name, "").size());
    return JoinPath(folder_, BeginningOf(fileName).append(time).append(")").append(extension));
}

bool KeptCopies::Keep(const std::string& fileName, std::string_view time) const noexcept {
    ErrorTrap trap(log_, "Keep", "KeptCopies");
    return trap([&] {
        const std::string copy = PathOf(fileName, time);
        if (!FileExists(files_, fileName) || FileExists(files_, copy)) return;
        files_.CreateFolder(folder_);
        WriteWholeFile(files_, copy, ReadWholeFile(files_, fileName));
        log_.LogEvent(fileName + " is kept as " + copy);
        RemoveOldest(files_, folder_, BeginningOf(fileName), FileNameOf(copy), kMost);
    });
}

}  // namespace kaz
