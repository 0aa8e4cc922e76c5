#pragma once

#include "platform/Sound.h"

#include <vector>

namespace kaz {

class FakeSound : public Sound {
public:
    struct Call {
        std::string file;
        std::uint32_t flags = 0;
        friend bool operator==(const Call&, const Call&) = default;
    };

    unsigned OutputDevices() const override { return devices; }
    void Play(const std::string& file, std::uint32_t flags) override { calls.push_back({file, flags}); }
    void Beep() override { ++beeps; }

    std::vector<Call> calls;
    unsigned devices = 1;
    int beeps = 0;
};

}  // namespace kaz
