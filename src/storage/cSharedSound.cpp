#include "storage/cSharedSound.h"

#include "platform/Files.h"

namespace kaz {

bool cSharedSound::HasSound() {
    if (!hasSound_) {
        hasSound_ = false;
        ErrorTrap(errors_, "HasSound", kModule)([&] { hasSound_ = sound_.OutputDevices() >= 1; });
    }
    return *hasSound_;
}

void cSharedSound::PlayWav(const std::string& file) {
    StopPlayingWAV();
    ErrorTrap(errors_, "PlayWav", kModule)([&] {
        if (FileExists(files_, file)) {
            sound_.Play(file, Sound::kAsync | Sound::kNoDefault | Sound::kNoStop | Sound::kFileName);
        } else {
            sound_.Beep();
        }
    });
}

void cSharedSound::StopPlayingWAV() {
    ErrorTrap(errors_, "StopPlayingWAV", kModule)([&] { sound_.Play({}, Sound::kPurge); });
}

}  // namespace kaz
