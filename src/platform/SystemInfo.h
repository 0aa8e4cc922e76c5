#pragma once

#include <optional>
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
    // Whether this program starts on that data folder when its user logs on; nothing where it is none that
    // can be started so.
    virtual std::optional<bool> StartsAtLogon(const std::string& folder) const = 0;
    // Throws PermissionDenied, or InvalidCall with a reason in words, when the system refuses.
    virtual void StartAtLogon(const std::string& folder, bool starts) = 0;
};

}  // namespace kaz
