#include "platform/win32/Win32SystemInfo.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/win32/LogonStart.h"
#include "win32/Handles.h"
#include "win32/SystemError.h"
#include "win32/Text.h"

#include <objbase.h>
#include <shlobj.h>

namespace kaz {

std::string Win32SystemInfo::OperatingSystem() const {
    // GetVersionEx tells a program without the newest manifest an older version;
    // this one always tells the truth.
    using RtlGetVersion = LONG(WINAPI*)(OSVERSIONINFOW*);
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    const auto getVersion = reinterpret_cast<RtlGetVersion>(
        reinterpret_cast<void*>(system ? GetProcAddress(system, "RtlGetVersion") : nullptr));
    if (!getVersion || getVersion(&version) != 0) return "Windows";

    constexpr DWORD kFirstBuildOf11 = 22000;
    const auto number = [](DWORD value) { return std::to_string(value); };
    const bool is11 = version.dwMajorVersion == 10 && version.dwBuildNumber >= kFirstBuildOf11;
    return "Windows " + (is11 ? "11" : number(version.dwMajorVersion)) + " (" +
           number(version.dwMajorVersion) + "." + number(version.dwMinorVersion) + "." +
           number(version.dwBuildNumber) + ")";
}

std::string Win32SystemInfo::ModuleFolder() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module_, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) ThrowSystemError(GetLastError());
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    return WithoutTrailingBackslash(FolderOf(PathText(path)));
}

std::string Win32SystemInfo::UserFolder() const {
    // The documents can be on a drive that is not there.
    for (const KNOWNFOLDERID& folder : {FOLDERID_Documents, FOLDERID_Profile}) {
        TaskText path;
        if (SUCCEEDED(SHGetKnownFolderPath(folder, 0, nullptr, path.Put())))
            return WithoutTrailingBackslash(PathText(path.Get()));
    }
    throw RuntimeError(ErrorNumber::PathNotFound);
}

std::string Win32SystemInfo::LocalFolder() const {
    // From the environment: a start asks for it, and should not wait for the shell.
    wchar_t path[MAX_PATH + 1]{};
    const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", path, MAX_PATH + 1);
    return length > MAX_PATH ? std::string() : WithoutTrailingBackslash(PathText(path));
}

std::string Win32SystemInfo::TemporaryFolder() const {
    wchar_t path[MAX_PATH + 1]{};
    if (GetTempPathW(MAX_PATH + 1, path) == 0) ThrowSystemError(GetLastError());
    return WithoutTrailingBackslash(PathText(path));
}

std::optional<bool> Win32SystemInfo::StartsAtLogon(const std::string& folder) const {
    const LogonStart start(LogonStart::RunningProgram(), folder);
    return start.IsHost() ? std::optional(start.IsOn()) : std::nullopt;
}

void Win32SystemInfo::StartAtLogon(const std::string& folder, bool starts) {
    LogonStart(LogonStart::RunningProgram(), folder).Turn(starts);
}

}  // namespace kaz
