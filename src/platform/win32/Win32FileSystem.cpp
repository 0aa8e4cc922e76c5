#include "platform/win32/Win32FileSystem.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/win32/Win32File.h"
#include "win32/SystemError.h"
#include "win32/Text.h"

#include <windows.h>

#include <algorithm>
#include <string>

namespace kaz {

namespace {

// The path for the wide calls. One that is too long for them is made absolute and given the prefix that lifts
// the limit. Throws PathFileAccess for a path with a zero character in it.
std::wstring WidePath(const std::string& path);

// Whether the drive or the server of the path answers at all.
bool IsReachable(const std::wstring& path);

constexpr std::wstring_view kVerbatim = L"\\\\?\\";

std::wstring Absolute(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) ThrowSystemError(GetLastError());
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full;
}

bool StartsWithDrive(std::wstring_view path) { return path.size() >= 2 && path[1] == L':'; }

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

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr int kTries = 10;
constexpr DWORD kPause = 20;  // milliseconds

bool IsCertainlyMissing(DWORD error, const std::wstring& path) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY: return true;
    case ERROR_PATH_NOT_FOUND: return IsReachable(path);
    default: return false;
    }
}

// What the system says of a path; `error` is 0 when it said anything.
struct Look {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    DWORD error = 0;

    explicit Look(const std::wstring& path) {
        if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) error = GetLastError();
    }
    bool Has(DWORD attribute) const { return error == 0 && (data.dwFileAttributes & attribute) != 0; }
};

// The system answers "access denied" also for a folder where a file is wanted.
[[noreturn]] void ThrowFor(DWORD error, const std::wstring& path) {
    if (error == ERROR_ACCESS_DENIED && Look(path).Has(FILE_ATTRIBUTE_DIRECTORY))
        throw RuntimeError(ErrorNumber::PathFileAccess);
    ThrowSystemError(error);
}

FileHandle Open(const std::wstring& path, DWORD access, DWORD disposition, DWORD flags,
                DWORD share = kShareAll) {
    return FileHandle(CreateFileW(path.c_str(), access, share, nullptr, disposition, flags, nullptr));
}

// Runs the step until it succeeds, as long as somebody else's hold on the file may be what stops it.
template <class Step>
DWORD RetryWhileHeld(Step step, bool deniedMayPass) {
    for (int tries = 1;; ++tries) {
        if (step()) return ERROR_SUCCESS;
        const DWORD error = GetLastError();
        const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
                          (deniedMayPass && error == ERROR_ACCESS_DENIED);
        if (!held || tries == kTries) return error;
        Sleep(kPause);
    }
}

}  // namespace

PathKind Win32FileSystem::Kind(const std::string& path) const {
    const std::wstring wide = WidePath(path);
    const Look look(wide);
    if (look.error == ERROR_ACCESS_DENIED || look.error == ERROR_SHARING_VIOLATION) return PathKind::File;
    if (look.error) return IsCertainlyMissing(look.error, wide) ? PathKind::Missing : PathKind::Other;
    if (look.Has(FILE_ATTRIBUTE_DIRECTORY)) return PathKind::Folder;
    return look.Has(FILE_ATTRIBUTE_DEVICE) ? PathKind::Other : PathKind::File;
}

std::optional<FileTime> Win32FileSystem::ModificationTime(const std::string& path) const {
    const Look look(WidePath(path));
    if (look.error) return std::nullopt;
    const FILETIME& time = look.data.ftLastWriteTime;
    return static_cast<FileTime>((std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime);
}

bool Win32FileSystem::IsReadOnly(const std::string& path) const {
    const std::wstring wide = WidePath(path);
    const Look look(wide);
    if (look.error) return look.error == ERROR_ACCESS_DENIED;
    // A folder's read-only mark only tells the shell of a custom look; whether it
    // can be written shows by asking.
    const bool folder = look.Has(FILE_ATTRIBUTE_DIRECTORY);
    if (!folder && look.Has(FILE_ATTRIBUTE_READONLY)) return true;
    const FileHandle probe = Open(wide, folder ? FILE_ADD_FILE : FILE_APPEND_DATA, OPEN_EXISTING,
                                  folder ? FILE_FLAG_BACKUP_SEMANTICS : 0);
    return !probe && (GetLastError() == ERROR_ACCESS_DENIED || GetLastError() == ERROR_WRITE_PROTECT);
}

std::unique_ptr<InputFile> Win32FileSystem::OpenForReading(const std::string& path) {
    const std::wstring wide = WidePath(path);
    FileHandle file;
    const auto open = [&] {
        file = Open(wide, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
        return static_cast<bool>(file);
    };
    if (const DWORD error = RetryWhileHeld(open, false)) ThrowFor(error, wide);
    return std::make_unique<Win32InputFile>(std::move(file));
}

std::unique_ptr<OutputFile> Win32FileSystem::Create(const std::string& path) {
    const std::wstring wide = WidePath(path);
    FileHandle file = Open(wide, GENERIC_WRITE, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    if (!file) ThrowFor(GetLastError(), wide);
    return std::make_unique<Win32OutputFile>(std::move(file));
}

std::unique_ptr<OutputFile> Win32FileSystem::OpenForAppending(const std::string& path) {
    const std::wstring wide = WidePath(path);
    // Append access alone makes each write land at the end, also when two programs write to one log.
    FileHandle file = Open(wide, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    if (!file) ThrowFor(GetLastError(), wide);
    return std::make_unique<Win32OutputFile>(std::move(file));
}

std::unique_ptr<OutputFile> Win32FileSystem::OpenAlone(const std::string& path) {
    const std::wstring wide = WidePath(path);
    // Not tried again like a file that is held for a moment: who has it so keeps it.
    FileHandle file =
        Open(wide, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, FILE_SHARE_READ);
    if (!file) ThrowFor(GetLastError(), wide);
    return std::make_unique<Win32OutputFile>(std::move(file));
}

void Win32FileSystem::Replace(const std::string& from, const std::string& to) {
    const std::wstring source = WidePath(from);
    const std::wstring target = WidePath(to);
    const Look look(target);
    if (look.Has(FILE_ATTRIBUTE_DIRECTORY)) throw RuntimeError(ErrorNumber::PathFileAccess);
    if (look.Has(FILE_ATTRIBUTE_READONLY)) throw RuntimeError(ErrorNumber::PermissionDenied);
    const auto move = [&] {
        return MoveFileExW(source.c_str(), target.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    };
    if (const DWORD error = RetryWhileHeld(move, true)) ThrowFor(error, target);
}

void Win32FileSystem::Delete(const std::string& path) {
    const std::wstring wide = WidePath(path);
    // Wine would delete a protected file.
    if (Look(wide).Has(FILE_ATTRIBUTE_READONLY)) ThrowFor(ERROR_ACCESS_DENIED, wide);
    if (const DWORD error = RetryWhileHeld([&] { return DeleteFileW(wide.c_str()); }, false))
        ThrowFor(error, wide);
}

void Win32FileSystem::CreateFolder(const std::string& path) {
    const std::wstring wide = WidePath(path);
    if (CreateDirectoryW(wide.c_str(), nullptr)) return;
    const DWORD error = GetLastError();
    const Look look(wide);
    if (look.Has(FILE_ATTRIBUTE_DIRECTORY)) return;
    if (look.error == 0) throw RuntimeError(ErrorNumber::PathFileAccess);
    const std::string parent = FolderOf(WithoutTrailingBackslash(path));
    if (error != ERROR_PATH_NOT_FOUND || parent.empty() || parent.size() >= path.size())
        ThrowSystemError(error);
    CreateFolder(parent);
    if (!CreateDirectoryW(wide.c_str(), nullptr) && !Look(wide).Has(FILE_ATTRIBUTE_DIRECTORY))
        ThrowSystemError(GetLastError());
}

std::vector<std::string> Win32FileSystem::FilesIn(const std::string& folder) const {
    std::vector<std::string> names;
    WIN32_FIND_DATAW data{};
    const FindHandle found(FindFirstFileW(WidePath(JoinPath(folder, "*")).c_str(), &data));
    for (bool more = static_cast<bool>(found); more; more = FindNextFileW(found.Get(), &data) != FALSE) {
        if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
        // Another name than the file's own would be of no use to anybody.
        if (std::string name = ToUtf8(data.cFileName); ToWide(name) == data.cFileName)
            names.push_back(std::move(name));
    }
    return names;
}

std::string Win32FileSystem::CurrentFolder() const {
    const DWORD size = GetCurrentDirectoryW(0, nullptr);
    std::wstring folder(size, L'\0');
    const DWORD length = GetCurrentDirectoryW(size, folder.data());
    if (length == 0 || length >= size) ThrowSystemError(length == 0 ? GetLastError() : ERROR_PATH_NOT_FOUND);
    folder.resize(length);
    return PathText(folder);
}

}  // namespace kaz
