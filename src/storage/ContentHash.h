#pragma once

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
        for (; bytes.size() >= kStep; bytes.remove_prefix(kStep)) {
            std::uint64_t step = 0;
            std::memcpy(&step, bytes.data(), kStep);
            Mix(step);
        }
        for (const char byte : bytes)
            Hold(byte);
    }
    void Add(std::uint64_t number) { Mix(number); }

    std::uint64_t Value() const {
        ContentHash end = *this;
        end.Mix(tail_);
        end.Mix(size_);
        return end.state_ ^ (end.state_ >> 32U);
    }
    std::uint64_t Size() const { return size_; }

private:
    static constexpr std::size_t kStep = 8;

    void Mix(std::uint64_t number) {
        state_ = (state_ ^ number) * 0x9E3779B97F4A7C15U;
        state_ ^= state_ >> 29U;
    }
    void Hold(char byte) {
        tail_ |= std::uint64_t{static_cast<unsigned char>(byte)} << (8 * held_);
        if (++held_ < kStep) return;
        Mix(tail_);
        tail_ = 0;
        held_ = 0;
    }

    std::uint64_t state_ = 0x51ED270B7F4A7C15U;
    std::uint64_t tail_ = 0;
    std::uint64_t size_ = 0;
    std::size_t held_ = 0;
};

}  // namespace kaz
