#include "platform/zip/LibzipArchiver.h"

#include "base/ErrorTrap.h"
#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/zip/ArchiveImage.h"

#include <zip.h>

#include <cstddef>
#include <memory>
#include <string>

namespace kaz {

namespace {

// The file of that name in a ZIP archive that is in memory. Throws InternalError when the archive is damaged,
// FileNotFound when it holds no such file.
std::string FileInArchive(const std::string& archive, const std::string& name);

// An archive from elsewhere may claim any size; no event file is as long.
constexpr zip_uint64_t kLongest = zip_uint64_t{512} << 20U;

using Archive = std::unique_ptr<zip_t, void (*)(zip_t*)>;
using Entry = std::unique_ptr<zip_file_t, int (*)(zip_file_t*)>;

Archive Open(const std::string& archive) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(archive.data(), archive.size(), 0, &error);
    zip_t* opened = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    const std::string text = zip_error_strerror(&error);
    zip_error_fini(&error);
    if (opened) return {opened, zip_discard};
    zip_source_free(source);
    throw RuntimeError(ErrorNumber::InternalError, text);
}

std::string FileInArchive(const std::string& archive, const std::string& name) {
    const Archive opened = Open(archive);
    zip_stat_t about;
    zip_stat_init(&about);
    if (zip_stat(opened.get(), name.c_str(), ZIP_FL_NOCASE, &about) != 0)
        throw RuntimeError(ErrorNumber::FileNotFound);
    const Entry entry(zip_fopen_index(opened.get(), about.index, 0), zip_fclose);
    if (!entry || about.size > kLongest) throw RuntimeError(ErrorNumber::InternalError, "a damaged archive");
    std::string text(static_cast<std::size_t>(about.size), '\0');
    if (zip_fread(entry.get(), text.data(), text.size()) != static_cast<zip_int64_t>(text.size()))
        throw RuntimeError(ErrorNumber::InternalError, "a damaged archive");
    return text;
}

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
