#include "hosts/kaz2/ListsFile.h"

#include "hosts/kaz2/TextFile.h"
#include "win32/Text.h"

#include <algorithm>

namespace kaz {

namespace {

// An event is one line, also when its description has several.
std::wstring OneLine(std::wstring_view text) {
    std::wstring line;
    for (const wchar_t character : text) {
        if (character == L'\n')
            line += L' ';
        else if (character != L'\r')
            line += character;
    }
    return line;
}

void AddSection(std::wstring& text, const wchar_t* heading, const std::vector<std::wstring>& lines) {
    text.append(text.empty() ? L"" : L"\n").append(heading).append(L"\n");
    for (const std::wstring& line : lines)
        text.append(OneLine(line)).append(L"\n");
}

std::vector<std::wstring> Lines(std::wstring_view text) {
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L"\r\n"), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    return lines;
}

}  // namespace

void ListsFile::Mail(std::wstring_view to, std::wstring_view subject, std::wstring_view text) {
    if (fileName_.empty()) return;
    mails_.push_back(std::wstring(to).append(L", ").append(subject).append(L", ").append(text));
}

void ListsFile::All(std::wstring_view lines) {
    if (fileName_.empty()) return;
    std::wstring text;
    AddSection(text, L"TODAY", today_);
    AddSection(text, L"COMING UP", comingUp_);
    AddSection(text, L"ALL EVENTS", Lines(lines));
    AddSection(text, L"MAILS ASKED FOR", mails_);
    Write(ToUtf8(text));
}

void ListsFile::Write(const std::string& text) const { ReplaceFileBy(fileName_, text); }

}  // namespace kaz
