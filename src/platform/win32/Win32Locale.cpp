#include "platform/win32/Win32Locale.h"

#include "win32/Bstr.h"
#include "win32/Text.h"

#include <windows.h>
#include <oleauto.h>

#include <algorithm>
#include <span>

namespace kaz {

namespace {

std::optional<std::string> Ask(LCTYPE what) {
    wchar_t buffer[128];
    const int size =
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what, buffer, static_cast<int>(std::size(buffer)));
    if (size <= 1) return std::nullopt;
    return ToCodePageIfExact({buffer, static_cast<std::size_t>(size) - 1});
}

void Take(LCTYPE what, std::string& text) {
    if (auto answer = Ask(what)) text = *std::move(answer);
}

// All names of a kind or, when one of them is not of the code page's script, none: no mixture of languages.
void TakeAll(LCTYPE first, std::span<std::string> names) {
    std::array<std::string, 12> answers;
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto answer = Ask(first + static_cast<LCTYPE>(i));
        if (!answer) return;
        answers[i] = *std::move(answer);
    }
    std::copy_n(answers.begin(), names.size(), names.begin());
}

// The system counts the days from Monday.
void TakeDays(LCTYPE first, std::array<std::string, 7>& names) {
    std::array<std::string, 7> days{names[1], names[2], names[3], names[4], names[5], names[6], names[0]};
    TakeAll(first, days);
    for (std::size_t day = 0; day < 7; ++day)
        names[(day + 1) % 7] = days[day];
}

// French groups digits by a narrow blank that the code pages do not hold; the plain one reads the same.
void TakeSeparator(LCTYPE what, std::string& text) {
    wchar_t buffer[8];
    if (GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, what, buffer, static_cast<int>(std::size(buffer))) <= 1)
        return;
    text = ToCodePageIfExact(buffer).value_or(" ");
}

void TakeWord(VARIANT_BOOL value, std::string& text) {
    Bstr word;
    if (FAILED(VarBstrFromBool(value, GetUserDefaultLCID(), VAR_LOCALBOOL, word.Put()))) return;
    if (auto exact = ToCodePageIfExact(word.View()); exact && !exact->empty()) text = *std::move(exact);
}

LocaleData ReadLocale() {
    LocaleData data;
    TakeDays(LOCALE_SDAYNAME1, data.dayNames);
    TakeDays(LOCALE_SABBREVDAYNAME1, data.shortDayNames);
    TakeAll(LOCALE_SMONTHNAME1, data.monthNames);
    TakeAll(LOCALE_SABBREVMONTHNAME1, data.shortMonthNames);
    TakeWord(VARIANT_TRUE, data.trueWord);
    TakeWord(VARIANT_FALSE, data.falseWord);
    TakeSeparator(LOCALE_SDECIMAL, data.decimalSeparator);
    TakeSeparator(LOCALE_STHOUSAND, data.groupSeparator);
    Take(LOCALE_SSHORTDATE, data.shortDatePattern);
    Take(LOCALE_STIMEFORMAT, data.timePattern);
    Take(LOCALE_S1159, data.morning);
    Take(LOCALE_S2359, data.afternoon);
    return data;
}

CaseFolding ReadFolding() {
    std::array<unsigned char, 256> lower{};
    for (unsigned c = 0; c < 256; ++c) {
        lower[c] = static_cast<unsigned char>(c);
        const char byte = static_cast<char>(c);
        const std::wstring wide = ToWide({&byte, 1});
        wchar_t small = 0;
        if (wide.size() != 1 || LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, wide.data(), 1, &small,
                                              1, nullptr, nullptr, 0) != 1)
            continue;
        const auto back = ToCodePageIfExact({&small, 1});
        if (back && back->size() == 1) lower[c] = static_cast<unsigned char>(back->front());
    }
    return CaseFolding(lower);
}

}  // namespace

Win32Locale::Win32Locale() : data_(ReadLocale()), folding_(ReadFolding()) {}

std::optional<std::string> Win32Locale::FromUtf8(std::string_view text) const {
    const int size = static_cast<int>(text.size());
    const auto convert = [&](wchar_t* wide, int room) {
        return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide, room);
    };
    std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
    if (wide.empty()) return std::nullopt;
    convert(wide.data(), static_cast<int>(wide.size()));
    return ToCodePageIfExact(wide);
}

}  // namespace kaz
