#pragma once

#include "platform/FileSystem.h"
#include "platform/Locale.h"

#include <string>

namespace kaz {

// The text of a settings file in the system's code page, whatever editor has saved it: a mark for UTF-8 at
// its beginning is no part of it, and what is UTF-8 beyond ASCII is converted. A file that is not there has
// an empty text. Throws as FileSystem does, and PathFileAccess for a file that is no text of one byte a
// letter: taken as one, it would be a file of somebody who has chosen nothing.
std::string ReadSettingsText(FileSystem& files, const Locale& locale, const std::string& fileName);

}  // namespace kaz
