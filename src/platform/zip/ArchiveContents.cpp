#include "platform/zip/ArchiveContents.h"

#include "base/RuntimeError.h"

#include <zip.h>

#include <cstddef>
#include <memory>

namespace kaz {

namespace {

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

}  // namespace

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

}  // namespace kaz
