#pragma once

#include "platform/Random.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace kaz {

// Draws the scripted numbers first, then goes on with a sequence that is the same in every run.
class FakeRandom : public Random {
public:
    void Seed(double seed) override { seeds.push_back(seed); }
    double Next() override {
        if (!script.empty()) {
            const double next = script.front();
            script.pop_front();
            return next;
        }
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<double>(state_) / 4294967296.0;
    }

    std::deque<double> script;
    std::vector<double> seeds;

private:
    std::uint32_t state_ = 1;
};

}  // namespace kaz
