#include "unit/core/ZipReading.h"

#include <gtest/gtest.h>
#include <zip.h>

#include <ctime>

namespace kaz {

namespace {

zip_t* Open(const std::string& archive) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(archive.data(), archive.size(), 0, &error);
    zip_t* opened = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
    if (opened == nullptr) {
        ADD_FAILURE() << "not a whole archive: " << zip_error_strerror(&error);
        zip_source_free(source);
    }
    zip_error_fini(&error);
    return opened;
}

}  // namespace

std::map<std::string, std::string> Unpacked(const std::string& archive) {
    std::map<std::string, std::string> files;
    zip_t* opened = Open(archive);
    if (opened == nullptr) return files;
    for (zip_int64_t i = 0; i < zip_get_num_entries(opened, 0); ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t about;
        zip_stat_index(opened, index, 0, &about);
        std::string text(static_cast<std::size_t>(about.size), '\0');
        zip_file_t* file = zip_fopen_index(opened, index, 0);
        EXPECT_EQ(zip_fread(file, text.data(), text.size()), static_cast<zip_int64_t>(text.size()));
        EXPECT_EQ(zip_fclose(file), 0) << about.name;
        EXPECT_TRUE(files.emplace(about.name, text).second) << about.name << " twice";
    }
    zip_discard(opened);
    return files;
}

std::string TimeInArchive(const std::string& archive, const std::string& name) {
    zip_t* opened = Open(archive);
    if (opened == nullptr) return "";
    zip_stat_t about;
    EXPECT_EQ(zip_stat(opened, name.c_str(), 0, &about), 0);
    const std::time_t time = about.mtime;
    char text[20];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", std::localtime(&time));
    zip_discard(opened);
    return text;
}

}  // namespace kaz
