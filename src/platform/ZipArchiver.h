#pragma once

#include <string>
#include <vector>

namespace kaz {

struct ZipOptions {
    bool recurseFolders = false;
    bool encrypted = false;
    bool includeSystemFiles = false;
    bool updatingZip = false;
    bool ignorePath = false;
    std::string rootDirectory = "\\";
};

// The results of archiving; the numbers are those that ZIP programs end with.
inline constexpr int kZipSuccess = 0;
inline constexpr int kZipNotAvailable = 5;
inline constexpr int kZipNothingToDo = 12;
inline constexpr int kZipWriteFailed = 14;
inline constexpr int kZipBadOptions = 16;
inline constexpr int kZipReadFailed = 18;

// Puts files into a ZIP archive, in three steps: begin, options, archive. Nothing here throws.
class ZipArchiver {
public:
    virtual ~ZipArchiver() = default;

    // Forgets the options and the message of what went before. False when archiving is not possible at all.
    virtual bool ZpInit() noexcept = 0;
    // False when an option asks for what is not offered: folders, encryption, adding to an older archive. A
    // listed file is archived under its bare name whatever the other options say.
    virtual bool ZpSetOptions(const ZipOptions& options) noexcept = 0;
    // Writes the archive anew, in one step for whoever reads it; 0 is success. A listed file that does not
    // exist is left out. When one cannot be read, nothing could be archived, or the archive could not be
    // written, an older one stays as it was.
    virtual int ZpArchive(const std::string& archive, const std::vector<std::string>& fileNames) noexcept = 0;
    // A file of the archive, "" when it is not there or cannot be read.
    virtual std::string ZpRead(const std::string& archive, const std::string& name) noexcept = 0;
    // What went wrong in the last step, one sentence a file, or "".
    virtual std::string LastMessage() const = 0;
};

}  // namespace kaz
