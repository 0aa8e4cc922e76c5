#include "platform/posix/PosixSystemInfo.h"

#include "platform/Files.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace kaz {

std::string PosixSystemInfo::OperatingSystem() const {
    utsname name{};
    if (::uname(&name) != 0) return "POSIX";
    return std::string(name.sysname) + " " + name.release;
}

std::string PosixSystemInfo::ModuleFolder() const {
    std::array<char, 4096> buffer{};
    const auto length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length <= 0) return ".";
    std::string path(buffer.data(), static_cast<std::size_t>(length));
    std::replace(path.begin(), path.end(), '/', '\\');
    return FolderOf(path);
}

std::string PosixSystemInfo::UserFolder() const {
    const char* home = std::getenv("HOME");
    std::string path = home ? home : "";
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string PosixSystemInfo::TemporaryFolder() const { return "\\tmp"; }

}  // namespace kaz
