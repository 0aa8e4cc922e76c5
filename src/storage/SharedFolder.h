#pragma once

#include "platform/Files.h"
#include "support/cSHAREDSettings.h"
#include "support/cSharedLogging.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The folder through which users share events: a list of their names in "KAZShared.ini" and one event file
// for each. What stands in it was written by others and is not trusted: a name that could lead out of the
// folder is refused with a log line.
class SharedFolder {
public:
    // The folder of the setting "SharedDataPath"; "" when sharing has not been set up.
    SharedFolder(FileSystem& files, const cSHAREDSettings& settings, cSharedLogging& log);
    // Another one, such as the user is about to choose.
    SharedFolder(FileSystem& files, std::string path, cSharedLogging& log);

    const std::string& Path() const { return path_; }
    std::string ListFile() const;
    // The name of the user's shared file, and its full path.
    static std::string NameOf(std::string_view user);
    std::string FileOf(std::string_view user) const { return JoinPath(Path(), NameOf(user)); }

    // The listed names in the list's order, blanks around them and blank lines left out.
    std::vector<std::string> Users() const { return UsersOf(ListFile()); }
    // Those of a list by its path. A list that is not there has no names, but without its folder it cannot be
    // read. Throws as FileSystem does.
    std::vector<std::string> UsersOf(const std::string& listFile) const;
    // Adds a name that is not there yet. Throws InvalidCall for a name that cannot be part of a file name,
    // and as FileSystem does.
    void AddUser(std::string_view user);
    void RemoveUsers(const std::vector<std::string>& users);

    // Whether the name can be part of a file name without leading anywhere else.
    static bool IsSafeName(std::string_view name);

private:
    using Names = std::vector<std::string>;
    Names ListedNames(const std::string& listFile) const;
    // Changes the list, unless `change` finds nothing to do. Somebody else may write it at the same time, so
    // it is looked at once more before and after.
    void ChangeNames(const std::function<bool(Names&)>& change);

    FileSystem& files_;
    std::string path_;
    cSharedLogging& log_;
};

}  // namespace kaz
