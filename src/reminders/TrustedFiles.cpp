#include "reminders/TrustedFiles.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace kaz {

namespace {

constexpr const char* kSet = "TrustedFiles";
constexpr std::size_t kLongestPath = 32767;  // of Windows

// Where the code page is UTF-8, these show a name in another order than the system reads it: "txt.exe" as
// "exe.txt".
constexpr const char* kTurnText[] = {"\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC",
                                     "\xE2\x80\xAD", "\xE2\x80\xAE", "\xE2\x81\xA6",
                                     "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};

bool IsPlain(const std::string& text) {
    return std::none_of(text.begin(), text.end(), IsControl) &&
           std::none_of(std::begin(kTurnText), std::end(kTurnText),
                        [&](const char* turn) { return text.find(turn) != std::string::npos; });
}

}  // namespace

bool TrustedFiles::Holds(const std::string& source, const std::string& file) const {
    return settings_.ValueInSet(kSet, source + "|" + file);
}

void TrustedFiles::Add(const std::string& source, const std::string& file) {
    if (CanHold(source, file) && !Holds(source, file)) settings_.AddToSet(kSet, source + "|" + file);
}

bool TrustedFiles::CanHold(const std::string& source, const std::string& file) {
    return file.size() <= kLongestPath && IsPlain(source) && IsPlain(file);
}

}  // namespace kaz
