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
    return ToUtf8({buffer, static_cast<std::size_t>(size) - 1});
}

void Take(LCTYPE what, std::string& text) {
    if (auto answer = Ask(what)) text = *std::move(answer);
}

// All names of a kind or, when one of them is not known, none: no mixture of languages.
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

void TakeWord(VARIANT_BOOL value, std::string& text) {
    Bstr word;
    if (FAILED(VarBstrFromBool(value, GetUserDefaultLCID(), VAR_LOCALBOOL, word.Put()))) return;
    if (!word.View().empty()) text = ToUtf8(word.View());
}

LocaleData ReadLocale() {
    LocaleData data;
    TakeDays(LOCALE_SDAYNAME1, data.dayNames);
    TakeDays(LOCALE_SABBREVDAYNAME1, data.shortDayNames);
    TakeAll(LOCALE_SMONTHNAME1, data.monthNames);
    TakeAll(LOCALE_SABBREVMONTHNAME1, data.shortMonthNames);
    TakeWord(VARIANT_TRUE, data.trueWord);
    TakeWord(VARIANT_FALSE, data.falseWord);
    Take(LOCALE_SDECIMAL, data.decimalSeparator);
    Take(LOCALE_STHOUSAND, data.groupSeparator);
    Take(LOCALE_SSHORTDATE, data.shortDatePattern);
    Take(LOCALE_STIMEFORMAT, data.timePattern);
    Take(LOCALE_S1159, data.morning);
    Take(LOCALE_S2359, data.afternoon);
    return data;
}

}  // namespace

Win32Locale::Win32Locale() : data_(ReadLocale()) {}

}  // namespace kaz
