#pragma once

#include "base/ErrorTrap.h"
#include "platform/FileSystem.h"
#include "platform/Sound.h"

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// Plays one sound file at a time in the background. No operation throws.
class cSharedSound {
public:
    // All outlive the object.
    cSharedSound(Sound& sound, const FileSystem& files, ErrorSink& errors)
        : sound_(sound),
          files_(files),
          errors_(errors) {}

    // Whether the machine has a wave output device; asked once.
    bool HasSound();
    // A file that does not exist gives a beep.
    void PlayWav(const std::string& file);
    void StopPlayingWAV();

private:
    static constexpr std::string_view kModule = "cSharedSound";

    Sound& sound_;
    const FileSystem& files_;
    ErrorSink& errors_;
    std::optional<bool> hasSound_;
};

}  // namespace kaz
