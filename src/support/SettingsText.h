#pragma once

#include "base/RuntimeError.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"

#include <string>

namespace kaz {

// A settings file that is no text of one byte a letter: taken as one, it would be a file of somebody who has
// chosen nothing.
struct DamagedSettings : RuntimeError {
    explicit DamagedSettings(const std::string& fileName)
        : RuntimeError(ErrorNumber::PathFileAccess, "The settings file " + fileName + " is damaged") {}
};

// The text of a settings file in the system's code page, whatever editor has saved it: a mark for UTF-8 at
// its beginning is no part of it, and what is UTF-8 beyond ASCII is converted. A file that is not there has
// an empty text. Throws as FileSystem does, and DamagedSettings.
std::string ReadSettingsText(FileSystem& files, const Locale& locale, const std::string& fileName);

}  // namespace kaz
