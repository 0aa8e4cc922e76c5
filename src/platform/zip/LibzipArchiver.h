#pragma once

#include "platform/FileSystem.h"
#include "platform/ZipArchiver.h"

namespace kaz {

class LibzipArchiver : public ZipArchiver {
public:
    explicit LibzipArchiver(FileSystem& files) : files_(files) {}

    bool ZpInit() noexcept override;
    bool ZpSetOptions(const ZipOptions& options) noexcept override;
    int ZpArchive(const std::string& archive, const std::vector<std::string>& fileNames) noexcept override;
    std::string ZpRead(const std::string& archive, const std::string& name) noexcept override;
    std::string LastMessage() const override { return lastMessage_; }

private:
    void Tell(const std::string& fileName) noexcept;

    FileSystem& files_;
    bool optionsOffered_ = true;
    std::string lastMessage_;
};

}  // namespace kaz
