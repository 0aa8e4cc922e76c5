#include "hosts/kaz2/SilentStart.h"

#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/TextFile.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace kaz {

namespace {

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    return upper;
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

bool IsTrue(std::string_view value) {
    const std::string word = Upper(Trimmed(value));
    return word == "TRUE" || std::strtod(word.c_str(), nullptr) != 0;
}

}  // namespace

bool SaysSilentStart(const std::string& settings) {
    bool silent = false;
    for (std::size_t start = 0; start < settings.size();) {
        const std::size_t end = std::min(settings.find_first_of("\r\n", start), settings.size());
        const std::string_view line(settings.data() + start, end - start);
        const std::size_t comma = line.find(',');
        if (comma != line.npos && Upper(Trimmed(line.substr(0, comma))) == "SILENTSTART")
            silent = IsTrue(line.substr(comma + 1));
        start = end + 1;
    }
    return silent;
}

bool StartsSilently(const std::wstring& folder) {
    return SaysSilentStart(BytesOfFile(InFolder(folder, L"Kaz.ini")).value_or(""));
}

}  // namespace kaz
