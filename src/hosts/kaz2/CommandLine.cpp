#include "hosts/kaz2/CommandLine.h"

#include <windows.h>
#include <shellapi.h>

#include <memory>
#include <string_view>

namespace kaz {

namespace {

struct FreeLocal {
    void operator()(wchar_t** memory) const { LocalFree(memory); }
};

// In "D:\Data\" the system takes the last two characters for a quotation mark that belongs to the name.
std::wstring WithoutStrayQuote(std::wstring folder) {
    if (!folder.empty() && folder.back() == L'"') folder.pop_back();
    return folder;
}

}  // namespace

CommandLine ParseCommandLine(const wchar_t* text) {
    CommandLine line;
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocal> words(CommandLineToArgvW(text, &count));
    if (!words) return line;
    for (int index = 1; index < count; ++index) {
        const std::wstring_view word = words.get()[index];
        if (word == L"--lists") {
            if (++index < count) line.listsFile = words.get()[index];
        } else if (line.folder.empty()) {
            line.folder = WithoutStrayQuote(std::wstring(word));
        }
    }
    return line;
}

}  // namespace kaz
