#include "win32/Text.h"

#include "base/RuntimeError.h"

#include <windows.h>

#include <cstdio>

namespace kaz {

namespace {

unsigned FindCodePage() noexcept {
    constexpr DWORD kWestern = 1252;
    const UINT system = GetACP();
    if (system != CP_UTF8) return system;
    DWORD page = 0;
    const int got =
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                        reinterpret_cast<wchar_t*>(&page), sizeof page / sizeof(wchar_t));
    CPINFO info{};
    const bool usable = got > 0 && page != CP_ACP && GetCPInfo(page, &info) && info.MaxCharSize == 1;
    return usable ? page : kWestern;
}

std::wstring Convert(std::string_view text, UINT page) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(page, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(page, 0, text.data(), length, result.data(), size);
    return result;
}

std::string Convert(std::wstring_view text, UINT page, DWORD flags, BOOL* lost) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(page, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(page, flags, text.data(), length, result.data(), size, nullptr, lost);
    return result;
}

bool IsPair(std::wstring_view text, std::size_t at) {
    return at + 1 < text.size() && IS_SURROGATE_PAIR(text[at], text[at + 1]);
}

[[noreturn]] void ThrowForFirstLost(std::wstring_view text) {
    unsigned code = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool pair = IsPair(text, at);
        if (!ToCodePageIfExact(text.substr(at, pair ? 2 : 1))) {
            code = pair ? 0x10000U + ((text[at] & 0x3FFU) << 10) + (text[at + 1] & 0x3FFU) : text[at];
            break;
        }
        if (pair) ++at;
    }
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", code);
    throw RuntimeError(ErrorNumber::InvalidCall,
                       "The character " + std::string(name) +
                           " cannot be stored in this system's character set (code page " +
                           std::to_string(TextCodePage()) + "). Please replace it.");
}

}  // namespace

unsigned TextCodePage() noexcept {
    static const unsigned page = FindCodePage();
    return page;
}

std::wstring ToWide(std::string_view text) { return Convert(text, TextCodePage()); }

std::wstring FromUtf8(std::string_view text) { return Convert(text, CP_UTF8); }

std::string ToUtf8(std::wstring_view text) { return Convert(text, CP_UTF8, 0, nullptr); }

std::string ToCodePage(std::wstring_view text) { return Convert(text, TextCodePage(), 0, nullptr); }

std::optional<std::string> ToCodePageIfExact(std::wstring_view text) {
    BOOL lost = FALSE;
    // Without this flag a letter would silently lose its accent or a sign become a look-alike.
    std::string result = Convert(text, TextCodePage(), WC_NO_BEST_FIT_CHARS, &lost);
    if (lost) return std::nullopt;
    return result;
}

std::string ToCodePageExactly(std::wstring_view text) {
    if (auto result = ToCodePageIfExact(text)) return *std::move(result);
    ThrowForFirstLost(text);
}

std::string PathToCodePage(const std::wstring& path) {
    if (auto exact = ToCodePageIfExact(path)) return *std::move(exact);
    std::wstring shorter(path.size() + MAX_PATH, L'\0');
    const DWORD length = GetShortPathNameW(path.c_str(), shorter.data(), static_cast<DWORD>(shorter.size()));
    if (length == 0 || length >= shorter.size()) return ToCodePage(path);
    return ToCodePage(std::wstring_view(shorter).substr(0, length));
}

}  // namespace kaz
