#include "hosts/kaz2/CommandLine.h"

#include <string_view>

namespace kaz {

namespace {

// In "D:\Data\" the system takes the last two characters for a quotation mark that belongs to the name.
std::wstring WithoutStrayQuote(std::wstring folder) {
    if (!folder.empty() && folder.back() == L'"') folder.pop_back();
    return folder;
}

}  // namespace

std::wstring SilentArguments(const std::wstring& folder) {
    // A backslash before the closing quotation mark would make it a part of the name.
    return L"--silent \"" + folder + (folder.ends_with(L'\\') ? L"\\\"" : L"\"");
}

CommandLine ParseCommandLine(std::span<const wchar_t* const> words) {
    CommandLine line;
    for (std::size_t index = 1; index < words.size(); ++index) {
        const std::wstring_view word = words[index];
        if (word == L"--lists") {
            if (++index < words.size()) line.listsFile = words[index];
        } else if (word == L"--silent") {
            line.silent = true;
        } else if (word == L"--show") {
            line.show = true;
        } else if (word == L"--quit") {
            line.quit = true;
        } else if (word == L"--add") {
            line.add = true;
            while (++index < words.size())
                line.text.append(line.text.empty() ? L"" : L" ").append(words[index]);
        } else if (line.folder.empty()) {
            line.folder = WithoutStrayQuote(std::wstring(word));
        }
    }
    return line;
}

}  // namespace kaz
