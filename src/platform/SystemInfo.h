#pragma once

#include <string>

namespace kaz {

class SystemInfo {
public:
    virtual ~SystemInfo() = default;
    // Name and version, for the log's header.
    virtual std::string OperatingSystem() const = 0;
    // The folder of the component's own file, without trailing backslash.
    virtual std::string ModuleFolder() const = 0;
    // The folder for what the user keeps, of the user's profile, without trailing backslash.
    virtual std::string UserFolder() const = 0;
    // The folder for what belongs to this user on this machine alone, without
    // trailing backslash; "" without one.
    virtual std::string LocalFolder() const = 0;
    // The folder for files that nobody keeps, without trailing backslash.
    virtual std::string TemporaryFolder() const = 0;
};

}  // namespace kaz
