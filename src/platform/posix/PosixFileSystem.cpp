#include "platform/posix/PosixFileSystem.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace kaz {

namespace {

constexpr mode_t kMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;

std::string NativePath(const std::string& path) {
    if (path.find('\0') != std::string::npos) throw RuntimeError(ErrorNumber::PathFileAccess);
    std::string native = path;
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

// What the system says of a path; `error` is 0 when it said anything.
struct Look {
    struct stat data {};
    int error = 0;

    explicit Look(const std::string& native) {
        if (::stat(native.c_str(), &data) != 0) error = errno;
    }
    bool IsFolder() const { return error == 0 && S_ISDIR(data.st_mode); }
    bool IsMarkedReadOnly() const { return error == 0 && (data.st_mode & kMayWrite) == 0; }
};

// The system says "no such file" also when it is the folder that is missing.
[[noreturn]] void ThrowFor(int error, const std::string& path) {
    const std::string folder = FolderOf(path);
    if (error == ENOENT && !folder.empty() && Look(NativePath(folder)).error != 0)
        throw RuntimeError(ErrorNumber::PathNotFound);
    ThrowSystemError(error);
}

void RefuseReadOnly(const std::string& native) {
    if (Look(native).IsMarkedReadOnly()) throw RuntimeError(ErrorNumber::PermissionDenied);
}

// O_NONBLOCK, so that a pipe in the place of a file is an error instead of a wait without end.
Descriptor Open(const std::string& path, int flags) {
    constexpr mode_t kModeOfNewFiles = 0666;
    const std::string native = NativePath(path);
    if ((flags & O_ACCMODE) != O_RDONLY) RefuseReadOnly(native);
    Descriptor file(::open(native.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, kModeOfNewFiles));
    if (!file) ThrowFor(errno, path);
    return file;
}

}  // namespace

PathKind PosixFileSystem::Kind(const std::string& path) const {
    if (path.find('\0') != std::string::npos) return PathKind::Missing;
    const Look look(NativePath(path));
    if (look.error == ENOENT || look.error == ENOTDIR || look.error == ENAMETOOLONG) return PathKind::Missing;
    if (look.IsFolder()) return PathKind::Folder;
    // What may not be looked at is there for all we know.
    return look.error == 0 && S_ISREG(look.data.st_mode) ? PathKind::File : PathKind::Other;
}

std::optional<FileTime> PosixFileSystem::ModificationTime(const std::string& path) const {
    constexpr FileTime kUnitsPerSecond = 10'000'000;
    constexpr FileTime kNanosecondsPerUnit = 100;
    constexpr FileTime kSecondsFrom1601To1970 = 11'644'473'600;
    const Look look(NativePath(path));
    if (look.error != 0) return std::nullopt;
    const timespec& time = look.data.st_mtim;
    return (time.tv_sec + kSecondsFrom1601To1970) * kUnitsPerSecond + time.tv_nsec / kNanosecondsPerUnit;
}

bool PosixFileSystem::IsReadOnly(const std::string& path) const {
    const std::string native = NativePath(path);
    if (Look(native).IsMarkedReadOnly()) return true;
    return ::access(native.c_str(), W_OK) != 0 && (errno == EACCES || errno == EROFS);
}

std::unique_ptr<InputFile> PosixFileSystem::OpenForReading(const std::string& path) {
    return std::make_unique<PosixInputFile>(Open(path, O_RDONLY));
}

std::unique_ptr<OutputFile> PosixFileSystem::Create(const std::string& path) {
    return std::make_unique<PosixOutputFile>(Open(path, O_WRONLY | O_CREAT | O_TRUNC));
}

std::unique_ptr<OutputFile> PosixFileSystem::OpenForAppending(const std::string& path) {
    return std::make_unique<PosixOutputFile>(Open(path, O_WRONLY | O_CREAT | O_APPEND));
}

std::unique_ptr<OutputFile> PosixFileSystem::OpenAlone(const std::string& path) {
    Descriptor file = Open(path, O_WRONLY | O_CREAT | O_APPEND);
    if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0) throw RuntimeError(ErrorNumber::PermissionDenied);
    return std::make_unique<PosixOutputFile>(std::move(file));
}

void PosixFileSystem::Replace(const std::string& from, const std::string& to) {
    const std::string source = NativePath(from);
    const std::string target = NativePath(to);
    RefuseReadOnly(target);
    if (std::rename(source.c_str(), target.c_str()) != 0) {
        const int error = errno;
        ThrowFor(error, Look(source).error != 0 ? from : to);
    }
    // The new name is an entry of the folder, which has to reach the disk as well.
    const std::string folder = FolderOf(to);
    const Descriptor entries = Open(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    FlushToDisk(entries.Get());
}

void PosixFileSystem::Delete(const std::string& path) {
    const std::string native = NativePath(path);
    RefuseReadOnly(native);
    if (Look(native).IsFolder()) throw RuntimeError(ErrorNumber::PathFileAccess);
    if (::unlink(native.c_str()) != 0) ThrowFor(errno, path);
}

void PosixFileSystem::CreateFolder(const std::string& path) {
    constexpr mode_t kModeOfNewFolders = 0777;
    const std::string native = NativePath(path);
    if (::mkdir(native.c_str(), kModeOfNewFolders) == 0) return;
    const int error = errno;
    const Look look(native);
    if (look.IsFolder()) return;
    const std::string parent = FolderOf(WithoutTrailingBackslash(path));
    if (look.error == 0 || error != ENOENT || parent.empty()) ThrowSystemError(error);
    CreateFolder(parent);
    if (::mkdir(native.c_str(), kModeOfNewFolders) != 0 && !Look(native).IsFolder()) ThrowSystemError(errno);
}

std::vector<std::string> PosixFileSystem::FilesIn(const std::string& folder) const {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(NativePath(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        if (Kind(entry->path().string()) == PathKind::File)
            names.push_back(entry->path().filename().string());
    return names;
}

std::string PosixFileSystem::CurrentFolder() const {
    const std::unique_ptr<char, void (*)(void*)> folder(::getcwd(nullptr, 0), std::free);
    if (!folder) ThrowSystemError(errno);
    std::string path = folder.get();
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

}  // namespace kaz
