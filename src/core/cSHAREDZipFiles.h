#pragma once

#include "base/RuntimeError.h"
#include "platform/ZipArchiver.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The list of files to archive was asked for what it cannot do.
class ZipListError : public RuntimeError {
public:
    ZipListError(std::string description, std::string source)
        : RuntimeError(ErrorNumber::InvalidCall, std::move(description)),
          source_(std::move(source)) {}
    const std::string& Source() const noexcept { return source_; }

private:
    std::string source_;
};

// One archive to be made: its name, the files that go into it and the options.
class cSHAREDZipFiles {
public:
    // `archiver` outlives the object.
    explicit cSHAREDZipFiles(ZipArchiver& archiver);

    bool RecurseFolders = false;
    bool Encrypted = false;
    bool IncludeSystemFiles = false;
    bool UpdatingZip = false;
    bool IgnorePath = false;
    std::string RootDirectory = "\\";

    // Makes the object what it was when new.
    void Setup();

    const std::string& ZipFileName() const { return zipFileName_; }
    void ZipFileName(std::string name) { zipFileName_ = std::move(name); }

    // A file can be in the list once, whatever the letter case. Both throw ZipListError.
    void AddFile(const std::string& fileName);
    // Promised: the program itself never calls these.
    void RemoveFile(const std::string& fileName);
    std::int32_t ZipFileCount() const { return static_cast<std::int32_t>(fileNames_.size()) - 1; }

    // The archiver's result code; 0 is success.
    int MakeZipFile();
    // Whether it has ended well.
    bool Zip() { return MakeZipFile() == kZipSuccess; }
    const std::string& GetLastMessage() const { return lastMessage_; }

private:
    using Position = std::vector<std::string>::const_iterator;
    Position Find(std::string_view fileName) const;
    ZipOptions Options() const;

    ZipArchiver& archiver_;
    std::string zipFileName_;
    std::vector<std::string> fileNames_;
    std::string lastMessage_;
};

}  // namespace kaz
