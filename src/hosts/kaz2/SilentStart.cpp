#include "hosts/kaz2/SilentStart.h"

#include "base/Text.h"
#include "hosts/kaz2/DataFolder.h"
#include "hosts/kaz2/TextFile.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace kaz {

namespace {

// Not by LeadingNumber: what that brings along would make the host a tenth larger.
bool IsTrue(std::string_view value) {
    return StringsEqual(value, "TRUE", CaseFolding::Ascii()) ||
           std::strtod(std::string(value).c_str(), nullptr) != 0;
}

}  // namespace

bool SaysSilentStart(const std::string& settings) {
    bool silent = false;
    for (std::size_t start = 0; start < settings.size();) {
        const std::size_t end = std::min(settings.find_first_of("\r\n", start), settings.size());
        const std::string_view line(settings.data() + start, end - start);
        const std::size_t comma = line.find(',');
        if (comma != line.npos && StringsEqual(line.substr(0, comma), "SILENTSTART", CaseFolding::Ascii()))
            silent = IsTrue(line.substr(comma + 1));
        start = end + 1;
    }
    return silent;
}

bool StartsSilently(const std::wstring& folder) {
    return SaysSilentStart(BytesOfFile(InFolder(folder, L"Kaz.ini")).value_or(""));
}

}  // namespace kaz
