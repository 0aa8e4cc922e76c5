#include "base/DateText.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "fakes/FakeLocale.h"

#include <gtest/gtest.h>

#include <random>

namespace kaz {
namespace {

DateValue At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DateValue(DateValue::FromCivil(year, month, day).Day(), (hour * 60 + minute) * 60 + second);
}

std::string Show(const std::optional<DateValue>& date) {
    return date ? FormatDate(*date, "YYYY-MM-DD HH:NN:SS", {}) : "nothing";
}

void ExpectRead(const LocaleData& locale, std::string_view text, const char* expected) {
    EXPECT_EQ(Show(RecogniseDate(text, locale)), expected) << '"' << text << '"';
}

TEST(FormatDate, LettersOfThePattern) {
    const LocaleData english;
    const DateValue morning = At(2023, 3, 5, 0, 7, 9);
    const DateValue evening = At(2023, 11, 25, 23, 45, 30);
    struct {
        const char* pattern;
        const char* morning;
        const char* evening;
    } const cases[] = {
        {"YYYY-MM-DD HH:MM", "2023-03-05 00:07", "2023-11-25 23:45"},
        {"d/m/yy h:n:s", "5/3/23 0:7:9", "25/11/23 23:45:30"},
        {"DDD, DDDD MMM MMMM", "Sun, Sunday Mar March", "Sat, Saturday Nov November"},
        {"H:MMam/pm", "12:07am", "11:45pm"},
        {"HH:NN AM/PM", "12:07 AM", "11:45 PM"},
        // Right after an hour and a colon only, months are minutes.
        {"MM:HH:MM:MM", "03:00:07:03", "11:23:45:11"},
        {"HH MM HH.MM", "00 03 00.03", "23 11 23.11"},
        {"YYYYY YYY Y", "2023Y 23Y Y", "2023Y 23Y Y"},
        {"DDDDD MMMMM", "Sunday5 March3", "Saturday25 November11"},
        {"a am amp/pm", "a a3 a3p/p3", "a a11 a11p/p11"},
        {"", "", ""},
    };
    for (const auto& [pattern, first, second] : cases) {
        EXPECT_EQ(FormatDate(morning, pattern, english), first) << pattern;
        EXPECT_EQ(FormatDate(evening, pattern, english), second) << pattern;
    }
    EXPECT_EQ(FormatDate(At(2023, 3, 15), "DDD DDDD MMM MMMM", FakeLocale::Polish()),
              "\234r. \234roda mar marzec");
    EXPECT_EQ(FormatDate(At(2023, 3, 15), "DDD DDDD MMM MMMM", FakeLocale::German()),
              "Mi Mittwoch Mrz M\344rz");
    EXPECT_EQ(FormatDate(At(150, 1, 1), "YY/YYYY", english), "50/0150");
}

TEST(GeneralDateText, ZeroPartsAreLeftOut) {
    const LocaleData english;
    EXPECT_EQ(GeneralDateText(At(2023, 3, 5), english), "3/5/2023");
    EXPECT_EQ(GeneralDateText(At(2023, 3, 5, 12, 0, 1), english), "3/5/2023 12:00:01 PM");
    EXPECT_EQ(GeneralDateText(DateValue(0, 3600), english), "1:00:00 AM");
    EXPECT_EQ(GeneralDateText(DateValue(), english), "12:00:00 AM");
    EXPECT_EQ(GeneralDateText(At(2023, 3, 5, 7), FakeLocale::Hungarian()), "2023. 03. 05. 7:00:00");
    LocaleData odd;
    odd.shortDatePattern = "'d''a 'dddd d. MMM ''yy";
    odd.timePattern = "t h:m:s";
    EXPECT_EQ(GeneralDateText(At(2023, 3, 5, 13), odd), "d'a Sunday 5. Mar '23 P 1:0:0");
    EXPECT_EQ(GeneralDateText(At(1850, 3, 5), odd), "d'a Tuesday 5. Mar '1850");
}

TEST(RecogniseDate, FormsOfTheFilesInEveryLocale) {
    const LocaleData locales[] = {FakeLocale::English(), FakeLocale::German(), FakeLocale::French(),
                                  FakeLocale::Polish(), FakeLocale::Hungarian()};
    for (const LocaleData& locale : locales) {
        ExpectRead(locale, "2023-03-05", "2023-03-05 00:00:00");
        ExpectRead(locale, " 2023-03-05 07:08 ", "2023-03-05 07:08:00");
        ExpectRead(locale, "2023-03-05 07:08:09", "2023-03-05 07:08:09");
        ExpectRead(locale, "1899-12-30 23:59", "1899-12-30 23:59:00");
        ExpectRead(locale, "0100-01-01", "0100-01-01 00:00:00");
        ExpectRead(locale, "9999-12-31 23:59:59", "9999-12-31 23:59:59");
        ExpectRead(locale, "2024-02-29", "2024-02-29 00:00:00");
        ExpectRead(locale, "2023-3-5", "2023-03-05 00:00:00");
        for (const char* bad :
             {"2023-02-29", "1900-02-29", "2023-13-01", "2023-00-10", "2023-01-00", "2023-01-32",
              "0099-12-31", "0000-00-00", "2023-03-05 24:00", "2023-03-05 23:60", "2023-03-05 23:59:60",
              "2023-03-05 7:", "2023-03-05T07:08", "2023-03-0x", "2023-03-05 07:08 x", "2023-03-",
              "-2023-03-05", "20230-3-5"})
            ExpectRead(locale, bad, "nothing");
    }
}

TEST(RecogniseDate, OrderAndNamesOfTheLocale) {
    const LocaleData english;
    ExpectRead(english, "3/5/2023", "2023-03-05 00:00:00");
    ExpectRead(english, "3-5-29", "2029-03-05 00:00:00");
    ExpectRead(english, "3.5.30", "1930-03-05 00:00:00");
    ExpectRead(english, "3 5 0", "2000-03-05 00:00:00");
    ExpectRead(english, "3/5/123", "0123-03-05 00:00:00");
    ExpectRead(english, "Sunday, March 5, 2023", "2023-03-05 00:00:00");
    ExpectRead(english, "5 MAR 2023", "2023-03-05 00:00:00");
    ExpectRead(english, "mar. 5 23 11:15 pm", "2023-03-05 23:15:00");
    ExpectRead(english, "2023 march 5", "2023-03-05 00:00:00");
    ExpectRead(english, "13/5/2023", "nothing");
    ExpectRead(FakeLocale::British(), "13/5/2023", "2023-05-13 00:00:00");
    ExpectRead(FakeLocale::German(), "5. M\304RZ 2023", "2023-03-05 00:00:00");
    ExpectRead(FakeLocale::German(), "So 5. Mrz. 2023, 7:08", "2023-03-05 07:08:00");
    ExpectRead(FakeLocale::French(), "mar 7 mars 2023", "2023-03-07 00:00:00");
    ExpectRead(FakeLocale::French(), "1 f\351vr. 2023", "2023-02-01 00:00:00");
    ExpectRead(FakeLocale::Polish(), "\234roda 15 marzec 2023", "2023-03-15 00:00:00");
    ExpectRead(FakeLocale::Hungarian(), "2023. 03. 05.", "2023-03-05 00:00:00");
    ExpectRead(FakeLocale::Hungarian(), "23.3.5", "2023-03-05 00:00:00");
    ExpectRead(FakeLocale::Hungarian(), "23. m\341rc. 5.", "2023-03-05 00:00:00");
    ExpectRead(FakeLocale::Hungarian(), "2023. m\341rc. 5. du. 7:08", "nothing");
    ExpectRead(english, "5\240Mar\2402023", "2023-03-05 00:00:00");
    LocaleData lettered;
    lettered.morning = "a";
    ExpectRead(lettered, "5 April 2023 7 A", "2023-04-05 07:00:00");
    LocaleData spanish = FakeLocale::British();
    spanish.shortDayNames[2] = spanish.shortMonthNames[2] = "mar.";
    spanish.morning = "a.\240m.";
    spanish.afternoon = "p.\240m.";
    ExpectRead(spanish, "mar. 7 mar. 2023 9:15 p.\240m.", "2023-03-07 21:15:00");
}

TEST(RecogniseDate, TheOrderComesFromThePattern) {
    struct {
        const char* pattern;
        DateOrder order;
    } const cases[] = {{"M/d/yyyy", DateOrder::MonthDayYear},         {"ddd M/d/yy", DateOrder::MonthDayYear},
                       {"dddd, d. M. yyyy", DateOrder::DayMonthYear}, {"'den 'M/d", DateOrder::MonthDayYear},
                       {"yy.MM.dd", DateOrder::YearMonthDay},         {"", DateOrder::MonthDayYear}};
    for (const auto& [pattern, order] : cases) {
        LocaleData locale;
        locale.shortDatePattern = pattern;
        EXPECT_EQ(locale.Order(), order) << pattern;
    }
}

TEST(RecogniseDate, Times) {
    const LocaleData english;
    ExpectRead(english, "7:08", "1899-12-30 07:08:00");
    ExpectRead(english, "23:59:59", "1899-12-30 23:59:59");
    ExpectRead(english, "12:00 am", "1899-12-30 00:00:00");
    ExpectRead(english, "12pm", "1899-12-30 12:00:00");
    ExpectRead(english, "7:08 3/5/2023", "2023-03-05 07:08:00");
    ExpectRead(FakeLocale::Hungarian(), "7:08 du.", "1899-12-30 19:08:00");
    ExpectRead(FakeLocale::Hungarian(), "7 DE", "1899-12-30 07:00:00");
    for (const char* bad :
         {"24:00", "7:60", "7:08:60", "13 pm", "7:", ":08", "7:8:9:1", "7:08 pm am", "100:00", "7:008",
          "3/5 7:08 2023", "7:08 8:09", "7:08 3/5", "3/5/2023/7:08", "3/5/2023 7:08 9", "7 pmx"})
        ExpectRead(english, bad, "nothing");
}

TEST(RecogniseDate, AnythingElseIsNothing) {
    const LocaleData english;
    constexpr std::string_view kBad =
        "| |0|45000|2.29|3/5|3//5/2023|/3/5/2023|3/5/2023/|3/5/2023-|3/5/6/7|March|Sunday|"
        "March 2023|March March 2023|5 Marchy 2023|5/0/2023|0/5/2023|3/-5/2023|3/5/20233|"
        "003/5/2023|3/005/2023|3:5:2023|true|3/5/99999999999999|Mar 005 2023|3/5/2023\n|"
        "(3/5/2023)";
    for (const std::string_view bad : Split(kBad, "|"))
        ExpectRead(english, bad, "nothing");
    EXPECT_FALSE(RecogniseDate(std::string_view("2023-03-05\0", 11), english));
    try {
        TextToDate("soon", english);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
    }
}

// What a locale shows it also reads, for dates of two-digit years as well; and no text whatever does harm.
TEST(RecogniseDate, ReadsWhatIsShownAndSurvivesNoise) {
    LocaleData shortYears = FakeLocale::German();
    shortYears.shortDatePattern = "d.M.yy";
    LocaleData named = FakeLocale::French();
    named.shortDatePattern = "dddd d MMMM yyyy";
    const LocaleData locales[] = {
        FakeLocale::English(), FakeLocale::British(),  FakeLocale::German(), shortYears, named,
        FakeLocale::Polish(),  FakeLocale::Hungarian()};
    std::mt19937 random(1);
    const std::string letters = "0123456789/-.,: apmAPM\0\xE9\xA0 marzec";
    for (const LocaleData& locale : locales)
        for (int i = 0; i < 2000; ++i) {
            const auto span = static_cast<std::uint32_t>(kLastDay - kFirstDay + 1);
            const DateValue date(kFirstDay + static_cast<std::int32_t>(random() % span),
                                 static_cast<std::int32_t>(random() % 86400));
            std::string text = GeneralDateText(date, locale);
            ASSERT_EQ(Show(RecogniseDate(text, locale)), Show(date)) << text;
            text[random() % text.size()] = letters[random() % letters.size()];
            const auto other = RecogniseDate(text.substr(random() % 4), locale);
            ASSERT_TRUE(!other || (other->Day() >= kFirstDay && other->Day() <= kLastDay)) << text;
        }
}

}  // namespace
}  // namespace kaz
