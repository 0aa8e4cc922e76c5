#pragma once

#include "platform/Random.h"

#include <cstdint>

namespace kaz {

// Spreads well and differs from start to start; nothing secret is made with it.
class Win32Random : public Random {
public:
    Win32Random();
    void Seed(double seed) override;
    double Next() override;

private:
    std::uint64_t state_;
};

}  // namespace kaz
