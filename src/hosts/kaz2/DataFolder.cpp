#include "hosts/kaz2/DataFolder.h"

#include "hosts/kaz2/StartFailure.h"
#include "win32/Handles.h"

#include <windows.h>
#include <shlobj.h>

namespace kaz {

namespace {

constexpr wchar_t kSound[] = L"alarm.wav";

std::wstring WithoutTrailingBackslash(std::wstring path) {
    while (path.size() > 1 && (path.back() == L'\\' || path.back() == L'/') && path[path.size() - 2] != L':')
        path.pop_back();
    return path;
}

std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size) return path;
    full.resize(length);
    return WithoutTrailingBackslash(full);
}

std::wstring RoamingFolder() {
    TaskText path;
    if (FAILED(SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, path.Put())))
        throw StartFailure{L"KAZ cannot find the folder for application data of this user."};
    return path.Get();
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring Created(const std::wstring& folder) {
    if (!IsFolder(folder) && !CreateDirectoryW(folder.c_str(), nullptr) && !IsFolder(folder))
        throw StartFailure{L"KAZ cannot use the folder\n" + folder +
                           L"\nIt does not exist and cannot be created."};
    return folder;
}

}  // namespace

std::wstring ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return WithoutTrailingBackslash(path.substr(0, path.find_last_of(L'\\') + 1));
}

std::wstring ChooseDataFolder(const std::wstring& asked) {
    if (!asked.empty()) return Created(FullPath(asked));
    std::wstring own = ProgramFolder();
    if (IsFile(InFolder(own, L"Kaz.ini")) || IsFile(InFolder(own, L"portable"))) return own;
    return Created(InFolder(RoamingFolder(), L"KAZ"));
}

void ProvideAlarmSound(const std::wstring& folder) {
    // A failure costs nothing but the default sound: the alarm window comes without it.
    CopyFileW(InFolder(ProgramFolder(), kSound).c_str(), InFolder(folder, kSound).c_str(), TRUE);
}

std::wstring InFolder(const std::wstring& folder, const wchar_t* name) {
    return folder + (folder.ends_with(L'\\') ? L"" : L"\\") + name;
}

}  // namespace kaz
