#include "platform/zip/LibzipArchiver.h"

#include "base/ErrorTrap.h"
#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/zip/ArchiveContents.h"
#include "platform/zip/ArchiveImage.h"

namespace kaz {

namespace {

bool IsMissing(const RuntimeError& error) {
    return error.Number() == ErrorNumber::FileNotFound || error.Number() == ErrorNumber::PathNotFound;
}

}  // namespace

bool LibzipArchiver::ZpInit() noexcept {
    optionsOffered_ = true;
    lastMessage_.clear();
    return true;
}

bool LibzipArchiver::ZpSetOptions(const ZipOptions& options) noexcept {
    optionsOffered_ = !options.recurseFolders && !options.encrypted && !options.updatingZip;
    return optionsOffered_;
}

int LibzipArchiver::ZpArchive(const std::string& archive,
                              const std::vector<std::string>& fileNames) noexcept {
    lastMessage_.clear();
    if (!optionsOffered_) return kZipBadOptions;
    int result = kZipSuccess;
    try {
        ArchiveImage image;
        for (const std::string& fileName : fileNames) {
            try {
                // Whole, before anything is written.
                std::string contents = ReadWholeFile(files_, fileName);
                image.Add(FileNameOf(fileName), std::move(contents),
                          files_.ModificationTime(fileName).value_or(0));
            } catch (const RuntimeError& error) {
                if (IsMissing(error)) continue;
                result = kZipReadFailed;
                Tell(fileName);
            }
        }
        if (result != kZipSuccess) return result;
        if (image.Empty()) return kZipNothingToDo;
        SafeFileWriter writer(files_, archive);
        image.WriteTo(writer);
        writer.Commit();
        return kZipSuccess;
    } catch (...) {
        Tell(archive);
        return kZipWriteFailed;
    }
}

std::string LibzipArchiver::ZpRead(const std::string& archive, const std::string& name) noexcept {
    try {
        return FileInArchive(ReadWholeFile(files_, archive), name);
    } catch (...) {
        return {};
    }
}

void LibzipArchiver::Tell(const std::string& fileName) noexcept {
    try {
        if (!lastMessage_.empty()) lastMessage_ += "; ";
        lastMessage_ += fileName + ": " + CurrentError().description;
    } catch (...) {
        // The result code still tells of the failure.
        lastMessage_.clear();
    }
}

}  // namespace kaz
