#include "platform/win32/Win32Path.h"

#include "base/RuntimeError.h"
#include "win32/SystemError.h"
#include "win32/Text.h"

#include <windows.h>

#include <algorithm>

namespace kaz {

namespace {

constexpr std::wstring_view kVerbatim = L"\\\\?\\";

std::wstring Absolute(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) ThrowSystemError(GetLastError());
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full;
}

bool StartsWithDrive(std::wstring_view path) { return path.size() >= 2 && path[1] == L':'; }

}  // namespace

std::wstring WidePath(const std::string& path) {
    if (path.find('\0') != std::string::npos) throw RuntimeError(ErrorNumber::PathFileAccess);
    std::wstring wide = ToWide(path);
    // Folders are limited to twelve characters less than files.
    constexpr std::size_t kLimit = MAX_PATH - 12;
    if (wide.size() < kLimit || wide.starts_with(kVerbatim)) return wide;
    wide = Absolute(wide);
    if (wide.starts_with(L"\\\\")) return std::wstring(kVerbatim).append(L"UNC").append(wide, 1);
    return std::wstring(kVerbatim) + wide;
}

bool IsReachable(const std::wstring& path) {
    std::wstring_view rest = path;
    if (rest.starts_with(kVerbatim)) rest.remove_prefix(kVerbatim.size());
    if (!StartsWithDrive(rest)) return true;
    const wchar_t root[] = {rest[0], L':', L'\\', L'\0'};
    return GetDriveTypeW(root) != DRIVE_NO_ROOT_DIR;
}

}  // namespace kaz
