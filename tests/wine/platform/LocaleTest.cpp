#include "base/CodePage.h"
#include "platform/win32/Win32Locale.h"
#include "win32/SystemCodePage.h"
#include "win32/Text.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace kaz {
namespace {

// Runs under several locales (see the file "locales"); LC_ALL says which.
std::string Language() {
    const char* locale = std::getenv("LC_ALL");
    return locale ? std::string(locale).substr(0, 5) : std::string();
}

TEST(LocaleTest, SaysWhatTheUsersLocaleSays) {
    const Win32Locale locale;
    const LocaleData& data = locale.Data();
    if (Language() == "de_DE") {
        EXPECT_EQ("Sonntag", data.dayNames[0]);
        EXPECT_EQ("Samstag", data.dayNames[6]);
        EXPECT_EQ("Mo", data.shortDayNames[1].substr(0, 2));
        EXPECT_EQ("März", data.monthNames[2]);
        EXPECT_EQ("Wahr", data.trueWord);
        EXPECT_EQ("Falsch", data.falseWord);
        EXPECT_NE(std::string::npos, data.shortDatePattern.find(".")) << data.shortDatePattern;
        EXPECT_EQ("HH:mm:ss", data.timePattern);
        EXPECT_EQ(DateOrder::DayMonthYear, data.Order());
        EXPECT_TRUE(data.CommaThousandSeparator());
    } else if (Language() == "pl_PL") {
        EXPECT_EQ(1250U, SystemCodePageNumber());
        EXPECT_EQ("niedziela", data.dayNames[0]);
        EXPECT_EQ("paź", data.shortMonthNames[9].substr(0, 4));
        EXPECT_EQ(',', data.decimalSeparator.front());
    } else {
        EXPECT_EQ(LocaleData().dayNames, data.dayNames);
        EXPECT_EQ(LocaleData().shortMonthNames, data.shortMonthNames);
        EXPECT_EQ("True", data.trueWord);
        EXPECT_EQ(".", data.decimalSeparator);
        EXPECT_EQ("AM", data.morning);
        EXPECT_EQ(DateOrder::MonthDayYear, data.Order());
    }
}

TEST(CodePageTest, EveryByteComesBackAndLettersBecomeTheNearest) {
    const CodePage& page = CodePage::OfSystem();
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; second += first < 0x80 ? 255 : 1) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
            EXPECT_EQ(bytes, page.Encode(page.Decode(bytes))) << first << " " << second;
        }
    if (SystemCodePageNumber() != 1252) return;
    for (int c = 0; c < 256; ++c) {
        const std::string byte(1, static_cast<char>(c));
        EXPECT_EQ(CodePage::Western().Decode(byte), page.Decode(byte)) << c;
    }
    EXPECT_EQ("Lukasz ? ?", page.Encode("Łukasz 🎂 日"));
    EXPECT_EQ("A", page.Encode("\uFF21"));
    EXPECT_FALSE(page.Holds("\uFF21")) << "a look-alike is another letter";
}

TEST(TextTest, WhatIsBrokenBecomesTheReplacementCharacter) {
    EXPECT_EQ(L"Łukasz \xD83C\xDF82", ToWide("Łukasz 🎂"));
    EXPECT_EQ("Łukasz 🎂", ToUtf8(L"Łukasz \xD83C\xDF82"));
    EXPECT_EQ("half \uFFFD.", ToUtf8(L"half \xD83D."));
    EXPECT_EQ(L"a\xFFFDz", ToWide("a\xFFz"));
    EXPECT_EQ(L"", ToWide(""));
}

}  // namespace
}  // namespace kaz
