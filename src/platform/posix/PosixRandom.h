#pragma once

#include "platform/Random.h"

#include <bit>
#include <cstdint>
#include <random>

namespace kaz {

class PosixRandom : public Random {
public:
    PosixRandom() : engine_(std::random_device()()) {}
    void Seed(double seed) override {
        const auto bits = std::bit_cast<std::uint64_t>(seed);
        std::seed_seq mixed{std::uint64_t{engine_()}, bits, bits >> 32};
        engine_.seed(mixed);
    }
    double Next() override { return std::uniform_real_distribution<double>(0.0, 1.0)(engine_); }

private:
    std::mt19937 engine_;
};

}  // namespace kaz
