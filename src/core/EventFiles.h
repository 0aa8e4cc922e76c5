#pragma once

#include "core/Application.h"

#include <string>

namespace kaz {

// The event files of the folder that the settings name: opened at the start, and
// again when the settings have changed.
class EventFiles {
public:
    explicit EventFiles(Application& application) : app_(application) {}

    // Makes the three databases and loads the local and the expired one; files of old versions are converted.
    void Open();
    void Reopen();
    // Loads the files of a folder that has come late. What the user has entered meanwhile joins them.
    void LoadLate();

    // Whether the folder has a file of current events, of this version or an old one.
    static bool AreIn(const FileSystem& files, const std::string& folder);
    // Copies what the program keeps beside the events, and these last; a file that is there already stays.
    // Throws as FileSystem does.
    static void Copy(FileSystem& files, const std::string& from, const std::string& to);

private:
    void NameSharedFile();
    void Load();
    bool KeepsOldFolder();
    void ReopenShared();

    Application& app_;
};

}  // namespace kaz
