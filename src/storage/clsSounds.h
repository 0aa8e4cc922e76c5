#pragma once

#include "base/ErrorTrap.h"
#include "platform/FileSystem.h"
#include "support/cSHAREDSettings.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The setting "WavFile"; by default "alarm.wav" in the application's folder, where the host
// puts it. A stored default that is gone gives way to the one that is here now: the folder has
// moved, or a stick has another letter.
std::string DefaultAlarmSound(const FileSystem& files, const cSHAREDSettings& settings,
                              const std::string& applicationFolder);

// The sound files of single events: a text file of lines "code,path" in the data folder. No operation throws;
// each loads the file first when that has not been done yet.
class clsSounds {
public:
    using FolderGetter = std::function<std::string()>;

    // `applicationFolder` is asked at each use, since the folder is known only after the start. All outlive
    // the object.
    clsSounds(FileSystem& files, const cSHAREDSettings& settings, ErrorSink& errors,
              FolderGetter applicationFolder);

    // Promised: the program itself never calls it.
    void AddorChange(std::string_view id, std::string_view wavFile);
    void Delete(std::string_view id);
    // The event's sound file up to a comma in it, or the default alarm sound.
    std::string GetWavName(std::string_view id);
    // Nothing when the event has no sound of its own.
    std::optional<std::string> OwnWavName(std::string_view id);
    void Initialise();

private:
    static constexpr std::string_view kModule = "clsSounds";

    void LoadOnce();
    void Load();
    void Save();
    std::string* Find(std::string_view id);

    FileSystem& files_;
    const cSHAREDSettings& settings_;
    ErrorSink& errors_;
    FolderGetter applicationFolder_;
    std::string fileName_;
    std::vector<std::string> lines_;
    std::string appended_;  // what the file holds beyond the lines
    bool loaded_ = false;
};

}  // namespace kaz
