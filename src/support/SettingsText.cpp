#include "support/SettingsText.h"

#include "platform/Files.h"

#include <algorithm>
#include <string_view>

namespace kaz {

namespace {
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
}

std::string ReadSettingsText(FileSystem& files, const Locale& locale, const std::string& fileName) {
    std::string text = ReadFileOrEmpty(files, fileName);
    const bool wide = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
    if (wide || text.find('\0') != std::string::npos) throw DamagedSettings(fileName);
    if (text.starts_with(kUtf8Mark)) text.erase(0, kUtf8Mark.size());
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; }))
        return text;
    return locale.FromUtf8(text).value_or(text);
}

}  // namespace kaz
