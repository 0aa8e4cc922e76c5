#pragma once

#include "platform/FileSystem.h"

#include <utility>

namespace kaz {

// Owns a file descriptor.
class Descriptor {
public:
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor();

    int Get() const noexcept { return number_; }
    int Release() noexcept { return std::exchange(number_, -1); }
    explicit operator bool() const noexcept { return number_ >= 0; }

private:
    int number_;
};

class PosixInputFile : public InputFile {
public:
    // Throws PathFileAccess when it is no regular file.
    explicit PosixInputFile(Descriptor file);
    std::size_t Read(char* buffer, std::size_t capacity) override;
    std::uint64_t Size() const override { return size_; }

private:
    Descriptor file_;
    std::uint64_t size_ = 0;
};

class PosixOutputFile : public OutputFile {
public:
    explicit PosixOutputFile(Descriptor file) : file_(std::move(file)) {}
    void Write(std::string_view text) override;
    void Flush() override;
    void Close() override;

private:
    Descriptor file_;
};

// Returns once what was written to the descriptor is on the disk; a device that
// cannot promise that counts as done.
void FlushToDisk(int descriptor);

}  // namespace kaz
