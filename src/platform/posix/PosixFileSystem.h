#pragma once

#include "platform/FileSystem.h"

namespace kaz {

// The files of a POSIX system for the program's backslash paths. As on Windows, a file without any permission
// to write counts as marked read-only, and nobody writes, replaces or deletes it, whatever the user's rights.
class PosixFileSystem : public FileSystem {
public:
    PathKind Kind(const std::string& path) const override;
    std::optional<FileTime> ModificationTime(const std::string& path) const override;
    bool IsReadOnly(const std::string& path) const override;
    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override;
    std::unique_ptr<OutputFile> Create(const std::string& path) override;
    std::unique_ptr<OutputFile> OpenForAppending(const std::string& path) override;
    std::unique_ptr<OutputFile> OpenAlone(const std::string& path) override;
    void Replace(const std::string& from, const std::string& to) override;
    void Delete(const std::string& path) override;
    void CreateFolder(const std::string& path) override;
    std::vector<std::string> FilesIn(const std::string& folder) const override;
    std::string CurrentFolder() const override;
};

}  // namespace kaz
