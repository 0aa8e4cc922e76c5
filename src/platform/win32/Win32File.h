#pragma once

#include "platform/FileSystem.h"
#include "win32/Handles.h"

namespace kaz {

class Win32InputFile : public InputFile {
public:
    // Throws PathFileAccess when the handle is no file on a disk.
    explicit Win32InputFile(FileHandle file);
    std::size_t Read(char* buffer, std::size_t capacity) override;
    std::uint64_t Size() const override { return size_; }

private:
    FileHandle file_;
    std::uint64_t size_ = 0;
};

class Win32OutputFile : public OutputFile {
public:
    explicit Win32OutputFile(FileHandle file) : file_(std::move(file)) {}
    void Write(std::string_view text) override;
    void Flush() override;
    void Close() override;

private:
    FileHandle file_;
};

}  // namespace kaz
