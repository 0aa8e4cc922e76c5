#include "base/RuntimeError.h"
#include "platform/win32/Win32Locale.h"
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
        EXPECT_EQ("M\xE4rz", data.monthNames[2]);
        EXPECT_EQ("Wahr", data.trueWord);
        EXPECT_EQ("Falsch", data.falseWord);
        EXPECT_NE(std::string::npos, data.shortDatePattern.find(".")) << data.shortDatePattern;
        EXPECT_EQ("HH:mm:ss", data.timePattern);
        EXPECT_EQ(DateOrder::DayMonthYear, data.Order());
        EXPECT_TRUE(data.CommaThousandSeparator());
    } else if (Language() == "pl_PL") {
        EXPECT_EQ(1250U, TextCodePage());
        EXPECT_EQ("niedziela", data.dayNames[0]);
        EXPECT_EQ("pa\x9F", data.shortMonthNames[9].substr(0, 3));
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

TEST(LocaleTest, FoldsTheLettersOfTheCodePage) {
    const Win32Locale locale;
    const CaseFolding& folding = locale.Folding();
    EXPECT_EQ("abcxyz[`{", folding.Lower("ABCXYZ[`{"));
    const char upper = Language() == "pl_PL" ? '\xA5' : '\xC4';  // A with ogonek, A with diaeresis
    const char lower = Language() == "pl_PL" ? '\xB9' : '\xE4';
    EXPECT_EQ(lower, folding.Lower(upper));
    EXPECT_EQ('\xD7', folding.Lower('\xD7'));
    for (int c = 0; c < 256; ++c) {
        const char once = folding.Lower(static_cast<char>(c));
        EXPECT_EQ(once, folding.Lower(once)) << c;
    }
    if (TextCodePage() != 1252) return;
    for (int c = 0; c < 256; ++c)
        EXPECT_EQ(CaseFolding::Western().Lower(static_cast<char>(c)), folding.Lower(static_cast<char>(c)))
            << c;
}

TEST(TextTest, EveryByteComesBack) {
    for (int c = 1; c < 256; ++c) {
        const std::string byte(1, static_cast<char>(c));
        const std::wstring wide = ToWide(byte);
        ASSERT_EQ(1U, wide.size()) << c;
        EXPECT_EQ(byte, ToCodePage(wide)) << c;
        EXPECT_EQ(byte, ToCodePageIfExact(wide)) << c;
    }
    EXPECT_EQ("", ToCodePageExactly(L""));
    EXPECT_EQ(L"", ToWide(""));
}

TEST(TextTest, ACharacterThatCannotBeHeldIsNamed) {
    const struct {
        const wchar_t* text;
        const char* name;
    } cases[] = {
        {L"Privet \x041F", "U+041F"},
        {L"ok \xD83D\xDE00!", "U+1F600"},
        {L"half \xD83D", "U+D83D"},
        {L"look-alike \xFF21", "U+FF21"},  // a wide A must not become a plain one
    };
    for (const auto& test : cases) {
        EXPECT_EQ(std::nullopt, ToCodePageIfExact(test.text));
        try {
            ToCodePageExactly(test.text);
            ADD_FAILURE() << test.name;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(ErrorNumber::InvalidCall, error.Number());
            EXPECT_NE(std::string::npos, error.Description().find(test.name)) << error.Description();
        }
    }
}

}  // namespace
}  // namespace kaz
