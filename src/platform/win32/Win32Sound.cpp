#include "platform/win32/Win32Sound.h"

#include <windows.h>
#include <mmsystem.h>

namespace kaz {

static_assert(Sound::kAsync == SND_ASYNC && Sound::kNoDefault == SND_NODEFAULT &&
              Sound::kNoStop == SND_NOSTOP && Sound::kPurge == SND_PURGE && Sound::kFileName == SND_FILENAME);

unsigned Win32Sound::OutputDevices() const { return waveOutGetNumDevs(); }

void Win32Sound::Play(const std::string& file, std::uint32_t flags) {
    PlaySoundA(file.empty() ? nullptr : file.c_str(), nullptr, flags);
}

void Win32Sound::Beep() { MessageBeep(MB_OK); }

}  // namespace kaz
