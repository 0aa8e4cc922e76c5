#pragma once

#include "platform/FileSystem.h"

namespace kaz {

// Files are opened so that other programs can read, write, rename and delete them meanwhile. A file that
// another program holds for a moment (a virus scanner, a backup) is waited for, at most a fifth of a second.
class Win32FileSystem : public FileSystem {
public:
    // Missing only when that is certain: a drive or server that does not answer gives Other, so that nobody
    // takes an unreachable file for an empty one.
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
