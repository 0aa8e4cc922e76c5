#pragma once

#include "platform/Sound.h"

namespace kaz {

class Win32Sound : public Sound {
public:
    unsigned OutputDevices() const override;
    std::string DeviceName() const override;
    bool Plays(const std::string& format) const override;
    bool Play(const std::string& file, std::uint32_t flags) override;
    void Beep() override;
};

}  // namespace kaz
