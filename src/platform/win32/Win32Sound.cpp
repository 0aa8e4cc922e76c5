#include "platform/win32/Win32Sound.h"

#include "win32/Text.h"

#include <windows.h>
#include <mmsystem.h>

#include <algorithm>
#include <cstring>

namespace kaz {

static_assert(Sound::kAsync == SND_ASYNC && Sound::kNoDefault == SND_NODEFAULT &&
              Sound::kNoStop == SND_NOSTOP && Sound::kPurge == SND_PURGE && Sound::kFileName == SND_FILENAME);

unsigned Win32Sound::OutputDevices() const { return waveOutGetNumDevs(); }

std::string Win32Sound::DeviceName() const {
    constexpr UINT kPreferredGet = 0x2000 + 21;  // DRVM_MAPPER_PREFERRED_GET of the system's driver kit
    DWORD device = 0;
    DWORD flags = 0;
    const auto mapper = reinterpret_cast<HWAVEOUT>(static_cast<UINT_PTR>(WAVE_MAPPER));
    if (waveOutMessage(mapper, kPreferredGet, reinterpret_cast<DWORD_PTR>(&device),
                       reinterpret_cast<DWORD_PTR>(&flags)) != MMSYSERR_NOERROR ||
        device == WAVE_MAPPER)
        device = 0;
    WAVEOUTCAPSW caps{};
    if (waveOutGetDevCapsW(device, &caps, sizeof caps) != MMSYSERR_NOERROR) return {};
    return ToUtf8(caps.szPname);
}

bool Win32Sound::Plays(const std::string& format) const {
    // Of plain samples the file leaves out the number of bytes that follow; they are none.
    std::string bytes = format;
    bytes.resize(std::max(bytes.size(), sizeof(WAVEFORMATEX)));
    WAVEFORMATEX head;
    std::memcpy(&head, bytes.data(), sizeof head);
    head.cbSize = static_cast<WORD>(std::min<std::size_t>(head.cbSize, bytes.size() - sizeof head));
    std::memcpy(bytes.data(), &head, sizeof head);
    return waveOutOpen(nullptr, WAVE_MAPPER, reinterpret_cast<const WAVEFORMATEX*>(bytes.data()), 0, 0,
                       WAVE_FORMAT_QUERY) == MMSYSERR_NOERROR;
}

bool Win32Sound::Play(const std::string& file, std::uint32_t flags) {
    // By its wide name: a process whose code page is UTF-8 would take the bytes of our texts for something
    // else, and stay silent without a word.
    const std::wstring name = ToWide(file);
    return PlaySoundW(name.empty() ? nullptr : name.c_str(), nullptr, flags) != FALSE;
}

void Win32Sound::Beep() { MessageBeep(MB_OK); }

}  // namespace kaz
