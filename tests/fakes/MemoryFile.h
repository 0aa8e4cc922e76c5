#pragma once

#include "fakes/MemoryFileSystem.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace kaz {

// An open file of the memory file system.
class MemoryInput : public InputFile {
public:
    MemoryInput(MemoryFileSystem& files, std::shared_ptr<MemoryFileSystem::Node> node)
        : files_(files),
          node_(std::move(node)) {
        ++node_->open;
    }
    ~MemoryInput() override { --node_->open; }
    MemoryInput(const MemoryInput&) = delete;
    MemoryInput& operator=(const MemoryInput&) = delete;

    std::size_t Read(char* buffer, std::size_t capacity) override {
        files_.faults.Operation();
        const std::size_t count = std::min(capacity, node_->text.size() - std::min(at_, node_->text.size()));
        std::copy_n(node_->text.data() + at_, count, buffer);
        at_ += count;
        return count;
    }
    std::uint64_t Size() const override { return node_->text.size(); }

private:
    MemoryFileSystem& files_;
    std::shared_ptr<MemoryFileSystem::Node> node_;
    std::size_t at_ = 0;
};

class MemoryOutput : public OutputFile {
public:
    MemoryOutput(MemoryFileSystem& files, std::shared_ptr<MemoryFileSystem::Node> node)
        : files_(files),
          node_(std::move(node)) {
        ++node_->open;
        ++files_.written;
    }
    ~MemoryOutput() override { Release(); }
    MemoryOutput(const MemoryOutput&) = delete;
    MemoryOutput& operator=(const MemoryOutput&) = delete;

    void Write(std::string_view text) override {
        files_.faults.Operation();
        const std::string& full = files_.fullFolder;
        if (!full.empty() && node_->name.starts_with(full)) throw RuntimeError(ErrorNumber::DiskFull);
        node_->text.append(text);
        files_.Touch(*node_);
    }
    void Flush() override {
        files_.faults.Operation();
        node_->onDisk = node_->text;
    }
    void Close() override {
        Release();
        files_.faults.Operation();
    }

private:
    void Release() {
        if (std::exchange(open_, false)) --node_->open;
    }

    MemoryFileSystem& files_;
    std::shared_ptr<MemoryFileSystem::Node> node_;
    bool open_ = true;
};

}  // namespace kaz
