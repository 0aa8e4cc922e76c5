#pragma once

#include <cstdint>
#include <string>

namespace kaz {

// The platform's wave-sound calls. The flags are those of its PlaySound call.
class Sound {
public:
    static constexpr std::uint32_t kAsync = 0x1;
    static constexpr std::uint32_t kNoDefault = 0x2;
    static constexpr std::uint32_t kNoStop = 0x10;
    static constexpr std::uint32_t kPurge = 0x40;
    static constexpr std::uint32_t kFileName = 0x20000;

    virtual ~Sound() = default;
    virtual unsigned OutputDevices() const = 0;
    // What the system calls the device that plays, perhaps cut off; "" when it does not say.
    virtual std::string DeviceName() const = 0;
    // Whether the default device plays sounds of that format, which is as WaveFormatOf found it.
    virtual bool Plays(const std::string& format) const = 0;
    // Plays the file under the flags; an empty name means no sound (with kPurge: stop what
    // plays). False when it does not begin; true does not mean that it was heard, since a sound
    // in the background is opened later.
    virtual bool Play(const std::string& file, std::uint32_t flags) = 0;
    virtual void Beep() = 0;
};

}  // namespace kaz
