#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// A file's modification date-time in 100-nanosecond units since 1 January 1601, UTC. Who asks whether a file
// has changed compares for equality only.
using FileTime = std::int64_t;

enum class PathKind { Missing, File, Folder, Other };

class InputFile {
public:
    virtual ~InputFile() = default;
    // Reads up to `capacity` bytes; 0 means the end of the file. Throws DeviceError.
    virtual std::size_t Read(char* buffer, std::size_t capacity) = 0;
    // The size in bytes when the file was opened; a hint for buffers, not a promise.
    virtual std::uint64_t Size() const = 0;
};

class OutputFile {
public:
    // Closes without telling of a failure; call Close to hear of it.
    virtual ~OutputFile() = default;
    // Writes all of it or throws DiskFull or DeviceError.
    virtual void Write(std::string_view text) = 0;
    // Returns once the bytes are on the disk itself. Throws DeviceError or DiskFull.
    virtual void Flush() = 0;
    virtual void Close() = 0;
};

// The primitive file operations, each of which can fail on its own. What is made of them (safe saving,
// appending a line, reading a whole text) is in Files.h. Paths have backslashes. Failures throw RuntimeError:
// FileNotFound, PathNotFound, PermissionDenied (locked, read-only or denied), PathFileAccess (a folder where
// a file is wanted, a malformed name), DiskFull, DeviceError.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual PathKind Kind(const std::string& path) const = 0;
    // Nothing when there is no such file.
    virtual std::optional<FileTime> ModificationTime(const std::string& path) const = 0;
    // Whether the file (or folder) carries the read-only mark or may not be written by this user.
    virtual bool IsReadOnly(const std::string& path) const = 0;

    virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;
    // Creates the file or empties an existing one.
    virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;
    virtual std::unique_ptr<OutputFile> OpenForAppending(const std::string& path) = 0;
    // Opens for appending, creating the file, what nobody else can open so until it is closed, or until the
    // program has ended in whatever way. Throws PermissionDenied while somebody else has it so.
    virtual std::unique_ptr<OutputFile> OpenAlone(const std::string& path) = 0;
    // Puts `from` in the place of `to` in one step: whoever reads `to` sees the old file or the new one.
    virtual void Replace(const std::string& from, const std::string& to) = 0;
    virtual void Delete(const std::string& path) = 0;
    // Creates the folder and its missing parents; an existing one is no failure.
    virtual void CreateFolder(const std::string& path) = 0;
    // The names of the files in the folder, in any order; none when it cannot be read.
    virtual std::vector<std::string> FilesIn(const std::string& folder) const = 0;
    virtual std::string CurrentFolder() const = 0;
};

}  // namespace kaz
