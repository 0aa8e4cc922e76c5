#pragma once

#include "platform/FileSystem.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kaz {

// The file of the user's tasks, each of them one line of text. They stand in it as they are, so a task cannot
// hold the file's own tags.
class TaskFile {
public:
    // `folder` is that of the file, and of the one that it took the place of: a plain text, one task a line.
    TaskFile(FileSystem& files, const std::string& folder);

    // Whether a backup of the file has tasks; asked when the file has not a single byte.
    void AskForBackup(std::function<bool()> hasTasks) { backupHasTasks_ = std::move(hasTasks); }

    // How many tasks the text of such a file holds.
    static std::size_t CountIn(std::string_view text);
    // Why a text cannot be a task, in a sentence for the user; "" when it can.
    static std::string FaultOf(std::string_view task);

    // The tasks as they are on the disk now, none without a file. Throws as FileSystem does, and
    // TypeMismatch for a damaged file: one that cannot be read is not an empty one.
    std::vector<std::string> Load();
    // Whether the file is another than at the last Load or Save, or was never read. Throws as Load does.
    bool Changed() const;
    // Replaces the file in one step; when that fails, the old one is as it was.
    // Throws as SafeFileWriter does.
    void Save(const std::vector<std::string>& tasks);

private:
    struct Content {
        bool plain = false;
        std::string text;
        friend bool operator==(const Content&, const Content&) = default;
    };
    Content Read() const;
    bool HadTasks() const;
    static std::vector<std::string> TasksIn(const Content& content);

    FileSystem* files_;
    std::string path_;
    std::string plainPath_;
    std::string keptPath_;
    std::optional<Content> known_;
    std::function<bool()> backupHasTasks_;
};

}  // namespace kaz
