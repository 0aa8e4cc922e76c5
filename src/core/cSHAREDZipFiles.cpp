#include "core/cSHAREDZipFiles.h"

#include "base/CaseFolding.h"

#include <algorithm>

namespace kaz {

namespace {

// Kept on purpose: the list begins with an entry that is no file, never counts and never reaches an archive.
constexpr std::string_view kPlaceholder = "querty";

}  // namespace

cSHAREDZipFiles::cSHAREDZipFiles(ZipArchiver& archiver) : archiver_(archiver) { Setup(); }

void cSHAREDZipFiles::Setup() {
    RecurseFolders = Encrypted = IncludeSystemFiles = UpdatingZip = IgnorePath = false;
    RootDirectory = "\\";
    zipFileName_.clear();
    lastMessage_.clear();
    fileNames_.assign(1, std::string(kPlaceholder));
}

void cSHAREDZipFiles::AddFile(const std::string& fileName) {
    if (Find(fileName) != fileNames_.end())
        throw ZipListError("File is already in Zip List", "CGZip::AddFile");
    fileNames_.push_back(fileName);
}

void cSHAREDZipFiles::RemoveFile(const std::string& fileName) {
    const auto found = Find(fileName);
    if (found == fileNames_.end() || found == fileNames_.begin())
        throw ZipListError("File is not in Zip List", "CGZip::RemoveFile");
    fileNames_.erase(found);
}

int cSHAREDZipFiles::MakeZipFile() {
    lastMessage_.clear();
    if (!archiver_.ZpInit()) return kZipNotAvailable;
    if (!archiver_.ZpSetOptions(Options())) return kZipBadOptions;
    const int result = archiver_.ZpArchive(zipFileName_, {fileNames_.begin() + 1, fileNames_.end()});
    lastMessage_ = archiver_.LastMessage();
    return result;
}

cSHAREDZipFiles::Position cSHAREDZipFiles::Find(std::string_view fileName) const {
    const auto same = [&](const std::string& listed) {
        return CaseFolding::Letters().Equal(listed, fileName);
    };
    return std::find_if(fileNames_.begin(), fileNames_.end(), same);
}

ZipOptions cSHAREDZipFiles::Options() const {
    return {RecurseFolders, Encrypted, IncludeSystemFiles, UpdatingZip, IgnorePath, RootDirectory};
}

}  // namespace kaz
