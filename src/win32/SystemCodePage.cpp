#include "win32/SystemCodePage.h"

#include <windows.h>

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
    const bool usable = got > 0 && page != CP_ACP && GetCPInfo(page, &info) && info.MaxCharSize <= 2;
    return usable ? page : kWestern;
}

}  // namespace

unsigned SystemCodePageNumber() noexcept {
    static const unsigned page = FindCodePage();
    return page;
}

}  // namespace kaz
