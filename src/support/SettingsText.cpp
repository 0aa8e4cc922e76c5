#include "support/SettingsText.h"

#include "base/CodePage.h"
#include "base/Utf8.h"
#include "platform/Files.h"

#include <string_view>

namespace kaz {

namespace {
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
}

std::string ReadSettingsText(FileSystem& files, const std::string& fileName) {
    std::string text = ReadFileOrEmpty(files, fileName);
    const bool wide = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
    if (wide || text.find('\0') != std::string::npos) throw DamagedSettings(fileName);
    if (text.starts_with(kUtf8Mark)) text.erase(0, kUtf8Mark.size());
    return IsUtf8(text) ? text : CodePage::OfSystem().Decode(text);
}

void WriteSettingsText(FileSystem& files, const std::string& fileName, std::string_view text) {
    WriteWholeFile(files, fileName, CodePage::OfSystem().Encode(text, CodePage::Otherwise::QuestionMark));
}

}  // namespace kaz
