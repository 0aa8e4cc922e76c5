#pragma once

namespace kaz {

class Random {
public:
    virtual ~Random() = default;
    // Mixes `seed` into the generator's state. It does not start a fixed sequence again, so that two draws
    // within one tick of the seeding clock still differ.
    virtual void Seed(double seed) = 0;
    // The next number, at least 0 and below 1.
    virtual double Next() = 0;
};

}  // namespace kaz
