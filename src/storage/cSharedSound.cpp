#include "storage/cSharedSound.h"

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/WaveFile.h"

#include <exception>

namespace kaz {

bool cSharedSound::HasSound() {
    if (!hasSound_) {
        hasSound_ = false;
        ErrorTrap(errors_, "HasSound", kModule)([&] { hasSound_ = sound_.OutputDevices() >= 1; });
    }
    return *hasSound_;
}

void cSharedSound::PlayWav(const std::string& file, const std::string& otherwise) {
    StopPlayingWAV();
    ErrorTrap(errors_, "PlayWav", kModule)([&] {
        if (!Begins(file) && (otherwise == file || !Begins(otherwise))) sound_.Beep();
    });
}

bool cSharedSound::Begins(const std::string& file) {
    if (!FileExists(files_, file)) return false;
    try {
        Begin(file);
        return true;
    } catch (const std::exception&) {
        TellOnce(file);
        return false;
    }
}

void cSharedSound::Begin(const std::string& file) {
    // Looked at before, since a sound in the background fails without a word.
    if (!sound_.Plays(WaveFormatOf(files_, file)))
        throw RuntimeError(ErrorNumber::DeviceError, file + " is in a format that cannot be played here");
    if (!sound_.Play(file, Sound::kAsync | Sound::kNoDefault | Sound::kNoStop | Sound::kFileName))
        throw RuntimeError(ErrorNumber::DeviceError,
                           file + " could not be played; another sound may be playing");
}

// A reminder comes back with its sound every half minute.
void cSharedSound::TellOnce(const std::string& file) {
    const ErrorInfo error = CurrentError();
    if (told_.insert(file).second) errors_.Report(error, "PlayWav", kModule);
}

void cSharedSound::StopPlayingWAV() {
    ErrorTrap(errors_, "StopPlayingWAV", kModule)([&] { sound_.Play({}, Sound::kPurge); });
}

}  // namespace kaz
