#include "win32/Text.h"

#include "win32/SystemCodePage.h"

#include <windows.h>

namespace kaz {

namespace {

bool FitsCodePage(std::wstring_view text) {
    BOOL lost = FALSE;
    // Without this flag a letter would silently lose its accent or a sign become a look-alike.
    WideCharToMultiByte(SystemCodePageNumber(), WC_NO_BEST_FIT_CHARS, text.data(),
                        static_cast<int>(text.size()), nullptr, 0, nullptr, &lost);
    return !lost;
}

}  // namespace

std::wstring ToWide(std::string_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), size);
    return result;
}

std::string ToUtf8(std::wstring_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

std::string PathText(const std::wstring& path) {
    if (path.empty() || FitsCodePage(path)) return ToUtf8(path);
    std::wstring shorter(path.size() + MAX_PATH, L'\0');
    const DWORD length = GetShortPathNameW(path.c_str(), shorter.data(), static_cast<DWORD>(shorter.size()));
    shorter.resize(length < shorter.size() ? length : 0);
    return ToUtf8(shorter.empty() || !FitsCodePage(shorter) ? path : shorter);
}

}  // namespace kaz
