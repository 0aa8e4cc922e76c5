#pragma once

#include "platform/Sound.h"

#include <string>
#include <vector>

namespace kaz {

// A wave sound as short as can be, in a format of that many channels.
inline std::string SampleWave(char channels = 1) {
    const std::string format{1, 0, channels, 0, 0x22, 0x56, 0, 0, 0x44, '\xAC', 0, 0, 2, 0, 16, 0};
    using namespace std::string_literals;
    return "RIFF\x28\0\0\0WAVEfmt \x10\0\0\0"s + format + "data\x02\0\0\0\0\0"s;
}

class FakeSound : public Sound {
public:
    struct Call {
        std::string file;
        std::uint32_t flags = 0;
        friend bool operator==(const Call&, const Call&) = default;
    };

    unsigned OutputDevices() const override { return devices; }
    std::string DeviceName() const override { return "Speakers"; }
    bool Plays(const std::string& format) const override { return format != refusedFormat; }
    bool Play(const std::string& file, std::uint32_t flags) override {
        calls.push_back({file, flags});
        return !busy;
    }
    void Beep() override { ++beeps; }

    std::vector<Call> calls;
    unsigned devices = 1;
    bool busy = false;  // somebody else's sound is playing
    std::string refusedFormat;
    int beeps = 0;
};

}  // namespace kaz
