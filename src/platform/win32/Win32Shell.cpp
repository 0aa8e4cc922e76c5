#include "platform/win32/Win32Shell.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "win32/SystemError.h"
#include "win32/Text.h"

#include <windows.h>
#include <shellapi.h>

namespace kaz {

namespace {

// Not among MinGW's names.
constexpr DWORD kVirusInfected = 225;
constexpr DWORD kElevationRequired = 740;

// What the system names by a number only; whoever reads it has never heard of the call that failed.
std::string InWords(DWORD reason) {
    switch (reason) {
    case ERROR_NO_ASSOCIATION: return "no program is set up to open this kind of file";
    case ERROR_CANCELLED: return "it was cancelled";
    case ERROR_BAD_EXE_FORMAT:
    case ERROR_EXE_MACHINE_TYPE_MISMATCH: return "it is not a program for this computer";
    case kElevationRequired: return "it may be run by an administrator only";
    case ERROR_ACCESS_DISABLED_BY_POLICY:
    case kVirusInfected: return "this computer's rules forbid it";
    case ERROR_SHARING_VIOLATION: return "another program holds it";
    default: return "Windows could not do it (its error " + std::to_string(reason) + ")";
    }
}

void OpenAs(const std::string& target, int show) {
    if (target.empty()) throw RuntimeError(ErrorNumber::FileNotFound);
    // A folder's trailing backslash would escape the closing quote in the command line of some programs.
    const std::wstring what = ToWide(WithoutTrailingBackslash(target));
    // A program or script that is opened expects to find its neighbours.
    const bool isFile = GetFileAttributesW(what.c_str()) != INVALID_FILE_ATTRIBUTES;
    const std::wstring folder = isFile ? ToWide(FolderOf(target)) : std::wstring();

    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    info.lpFile = what.c_str();
    info.lpDirectory = folder.empty() ? nullptr : folder.c_str();
    info.nShow = show;
    if (ShellExecuteExW(&info)) return;

    const DWORD reason = GetLastError();
    const ErrorNumber number = FromSystemError(reason);
    const bool known = number == ErrorNumber::FileNotFound || number == ErrorNumber::PathNotFound ||
                       number == ErrorNumber::PermissionDenied;
    if (known && reason != ERROR_SHARING_VIOLATION) throw RuntimeError(number);
    throw RuntimeError(ErrorNumber::InvalidCall, InWords(reason));
}

}  // namespace

void Win32Shell::Open(const std::string& target) { OpenAs(target, SW_SHOWNORMAL); }

void Win32Shell::OpenBehind(const std::string& target) { OpenAs(target, SW_SHOWNOACTIVATE); }

}  // namespace kaz
