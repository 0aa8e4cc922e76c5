#include "platform/win32/Win32Shell.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "win32/SystemError.h"
#include "win32/Text.h"

#include <windows.h>
#include <shellapi.h>

namespace kaz {

void Win32Shell::Open(const std::string& target) {
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
    info.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&info)) return;

    const DWORD reason = GetLastError();
    if (reason == ERROR_NO_ASSOCIATION)
        throw RuntimeError(ErrorNumber::InvalidCall, "No program is set up to open this kind of file");
    const ErrorNumber number = FromSystemError(reason);
    const bool known = number == ErrorNumber::FileNotFound || number == ErrorNumber::PathNotFound ||
                       number == ErrorNumber::PermissionDenied;
    throw RuntimeError(known ? number : ErrorNumber::InvalidCall);
}

}  // namespace kaz
