#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kaz {

// Tells contents apart by one number, several bytes at a step. What is added in pieces gives the number of
// the whole, wherever the pieces were cut.
class ContentHash {
public:
    void Add(std::string_view bytes) {
        size_ += bytes.size();
        for (; held_ > 0 && !bytes.empty(); bytes.remove_prefix(1))
            Hold(bytes.front());
        for (; lane_ != 0 && bytes.size() >= kStep; bytes.remove_prefix(kStep))
            Mix(StepAt(bytes, 0));
        // Four at once, since none of them waits for another.
        for (; bytes.size() >= kLanes * kStep; bytes.remove_prefix(kLanes * kStep))
            for (std::size_t lane = 0; lane < kLanes; ++lane)
                lanes_[lane] = Mixed(lanes_[lane], StepAt(bytes, lane));
        for (; bytes.size() >= kStep; bytes.remove_prefix(kStep))
            Mix(StepAt(bytes, 0));
        for (const char byte : bytes)
            Hold(byte);
    }
    void Add(std::uint64_t number) { Mix(number); }

    std::uint64_t Value() const {
        std::uint64_t value = Mixed(size_, tail_);
        for (const std::uint64_t lane : lanes_)
            value = Mixed(value, lane);
        return value ^ (value >> 32U);
    }
    std::uint64_t Size() const { return size_; }

private:
    static constexpr std::size_t kStep = 8;
    static constexpr std::size_t kLanes = 4;

    static std::uint64_t StepAt(std::string_view bytes, std::size_t index) {
        std::uint64_t step = 0;
        std::memcpy(&step, bytes.data() + index * kStep, kStep);
        return step;
    }
    static std::uint64_t Mixed(std::uint64_t state, std::uint64_t number) {
        state = (state ^ number) * 0x9E3779B97F4A7C15U;
        return state ^ (state >> 29U);
    }
    // Each step goes into the lane whose turn it is.
    void Mix(std::uint64_t number) {
        lanes_[lane_] = Mixed(lanes_[lane_], number);
        lane_ = (lane_ + 1) % kLanes;
    }
    void Hold(char byte) {
        tail_ |= std::uint64_t{static_cast<unsigned char>(byte)} << (8 * held_);
        if (++held_ < kStep) return;
        Mix(tail_);
        tail_ = 0;
        held_ = 0;
    }

    std::array<std::uint64_t, kLanes> lanes_{1, 2, 3, 4};
    std::size_t lane_ = 0;
    std::uint64_t tail_ = 0;
    std::uint64_t size_ = 0;
    std::size_t held_ = 0;
};

}  // namespace kaz
