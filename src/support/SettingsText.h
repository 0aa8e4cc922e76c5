#pragma once

#include "base/RuntimeError.h"
#include "platform/FileSystem.h"

#include <string>
#include <string_view>

namespace kaz {

// A settings file that is no text of one byte a letter: taken as one, it would be a file of somebody who has
// chosen nothing.
struct DamagedSettings : RuntimeError {
    explicit DamagedSettings(const std::string& fileName)
        : RuntimeError(ErrorNumber::PathFileAccess, "The settings file " + fileName + " is damaged") {}
};

// The text of a settings file, whatever editor has saved it: as bytes of the code page, or as UTF-8, of which
// a mark at its beginning is no part of it. A file that is not there has an empty text. Throws as FileSystem
// does, and DamagedSettings.
std::string ReadSettingsText(FileSystem& files, const std::string& fileName);
// In bytes of the code page. Throws as SafeFileWriter does.
void WriteSettingsText(FileSystem& files, const std::string& fileName, std::string_view text);

}  // namespace kaz
