#pragma once

#include "platform/FileSystem.h"

namespace kaz {

// Replaces a file so that a reader, a crash or a full disk never meets half of it: the new text is written
// beside the file, flushed to the disk, and takes the file's place in one step. Until Commit has returned,
// the old file is as it was; a writer that is dropped before removes what it wrote.
class SafeFileWriter {
public:
    // Throws PermissionDenied when the file is there and read-only, and as FileSystem::Create does.
    SafeFileWriter(FileSystem& files, std::string path);
    ~SafeFileWriter();
    SafeFileWriter(const SafeFileWriter&) = delete;
    SafeFileWriter& operator=(const SafeFileWriter&) = delete;

    void Write(std::string_view text) { file_->Write(text); }
    void Commit();
    // The modification time of what was committed, whoever has replaced it since.
    std::optional<FileTime> Date() const { return date_; }

    // Deletes what writers of the file at `path` left beside it when the program was killed or the power
    // failed. Such a file is known by its name and by being a day older than the file itself, which has been
    // saved since; both times are the disk's own. Returns how many there were.
    static int DeleteAbandoned(FileSystem& files, const std::string& path);

private:
    FileSystem& files_;
    std::string path_;
    std::string beside_;
    std::unique_ptr<OutputFile> file_;
    std::optional<FileTime> date_;
    bool committed_ = false;
};

}  // namespace kaz
