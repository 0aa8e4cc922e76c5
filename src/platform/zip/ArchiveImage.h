#pragma once

#include "platform/FileSystem.h"
#include "platform/SafeFileWriter.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

struct zip;
struct zip_source;

namespace kaz {

// A ZIP archive that is put together in memory, so that the file system sees nothing but one finished file.
// Failures throw InternalError with the words of the library.
class ArchiveImage {
public:
    ArchiveImage();
    ~ArchiveImage();
    ArchiveImage(const ArchiveImage&) = delete;
    ArchiveImage& operator=(const ArchiveImage&) = delete;

    // A name that is taken, whatever the letter case, gets a number.
    void Add(std::string_view name, std::string contents, FileTime modified);
    bool Empty() const { return files_.empty(); }
    // Compresses what was added and hands it over; call it once and last.
    void WriteTo(SafeFileWriter& writer);

private:
    struct File {
        std::string name;
        std::string contents;
    };

    std::string FreeName(std::string_view name) const;
    [[noreturn]] void ThrowArchiveError() const;

    zip_source* image_ = nullptr;
    zip* archive_ = nullptr;
    std::deque<File> files_;  // the library reads them when the archive is closed
};

}  // namespace kaz
