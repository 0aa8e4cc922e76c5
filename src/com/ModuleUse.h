#pragma once

#include <atomic>

namespace kaz {

// Counts what keeps the module loaded: one for each living object and each lock of a class factory.
class ModuleUse {
public:
    ModuleUse() noexcept { Add(); }
    ModuleUse(const ModuleUse&) noexcept { Add(); }
    ModuleUse& operator=(const ModuleUse&) noexcept = default;
    ~ModuleUse() { Remove(); }

    static void Add() noexcept { ++count_; }
    static void Remove() noexcept { --count_; }
    static bool None() noexcept { return count_ == 0; }

private:
    static inline std::atomic<long> count_{0};
};

}  // namespace kaz
