#pragma once

#include "base/ErrorTrap.h"
#include "platform/FileSystem.h"
#include "platform/Sound.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace kaz {

// Plays one sound file at a time in the background. No operation throws.
class cSharedSound {
public:
    // All outlive the object.
    cSharedSound(Sound& sound, FileSystem& files, ErrorSink& errors)
        : sound_(sound),
          files_(files),
          errors_(errors) {}

    // Whether the machine has a wave output device; asked once.
    bool HasSound();
    // What cannot be played gives way to `otherwise`, and that to a beep. The reason is told once, unless it
    // is that the file does not exist.
    void PlayWav(const std::string& file, const std::string& otherwise = {});
    // Promised: the program itself never calls it.
    void StopPlayingWAV();

private:
    static constexpr std::string_view kModule = "cSharedSound";

    bool Begins(const std::string& file);
    void Begin(const std::string& file);
    void TellOnce(const std::string& file);

    Sound& sound_;
    FileSystem& files_;
    ErrorSink& errors_;
    std::set<std::string> told_;
    std::optional<bool> hasSound_;
};

}  // namespace kaz
