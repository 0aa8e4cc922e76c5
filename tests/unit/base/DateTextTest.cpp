#include "base/DateText.h"

#include "base/DayInShort.h"
#include "base/Text.h"
#include "fakes/ErrorOf.h"
#include "fakes/FakeLocale.h"
#include "fakes/TestData.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

namespace kaz {
namespace {

DateValue At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DateValue(DateValue::FromCivil(year, month, day).Day(), (hour * 60 + minute) * 60 + second);
}

std::string Show(const std::optional<DateValue>& date) {
    return date ? FormatDate(*date, "YYYY-MM-DD HH:NN:SS", {}) : "nothing";
}

TEST(FormatDate, TakesThePatternsOfTheTable) {
    for (const auto& row : GoldenTable("patterns.txt")) {
        EXPECT_EQ(FormatDate(At(2023, 3, 5, 0, 7, 9), row[0], {}), row.at(1)) << row[0];
        EXPECT_EQ(FormatDate(At(2023, 11, 25, 23, 45, 30), row[0], {}), row.at(2)) << row[0];
    }
    EXPECT_EQ(FormatDate(At(2023, 3, 15), "DDD DDDD MMM MMMM", FakeLocale::Polish()), "śr. środa mar marzec");
    EXPECT_EQ(FormatDate(At(2023, 3, 15), "DDD DDDD MMM MMMM", FakeLocale::German()), "Mi Mittwoch Mrz März");
    EXPECT_EQ(FormatDate(At(150, 1, 1), "YY/YYYY", {}), "50/0150");
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

TEST(RecogniseDate, FollowsTheTable) {
    const std::map<std::string_view, std::vector<LocaleData>> locales{
        {"every",
         {FakeLocale::English(), FakeLocale::German(), FakeLocale::French(), FakeLocale::Polish(),
          FakeLocale::Hungarian()}},
        {"English", {FakeLocale::English()}},
        {"British", {FakeLocale::British()}},
        {"German", {FakeLocale::German()}},
        {"French", {FakeLocale::French()}},
        {"Polish", {FakeLocale::Polish()}},
        {"Hungarian", {FakeLocale::Hungarian()}}};
    for (const auto& row : GoldenTable("dates.txt"))
        for (const LocaleData& locale : locales.at(row.at(0)))
            EXPECT_EQ(Show(RecogniseDate(row.at(1), locale)), row.at(2)) << row[0] << " " << row[1];
    EXPECT_EQ(ErrorOf([] { TextToDate("soon", {}); }), 13);
}

TEST(RecogniseDate, TakesTheWordsForMorningAndAfternoonFromTheLocale) {
    LocaleData lettered;
    lettered.morning = "a";
    EXPECT_EQ(Show(RecogniseDate("5 April 2023 7 A", lettered)), "2023-04-05 07:00:00");
    LocaleData spanish = FakeLocale::British();
    spanish.shortDayNames[2] = spanish.shortMonthNames[2] = "mar.";
    spanish.morning = "a.\u00A0m.";
    spanish.afternoon = "p.\u00A0m.";
    EXPECT_EQ(Show(RecogniseDate("mar. 7 mar. 2023 9:15 p.\u00A0m.", spanish)), "2023-03-07 21:15:00");
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

TEST(DayInShort, ReadsADayWithoutItsYearAsTheNextOne) {
    const DateValue today(45000);  // 15 March 2023
    struct {
        const char* text;
        const char* pattern;
        const char* day;
    } const cases[] = {{"3/12", "DD/MM/YYYY", "2023-12-03"},      {"3/12", "MM/DD/YYYY", "2024-03-12"},
                       {" 3.12. ", "DD/MM/YYYY", "2023-12-03"},   {"3 dec", "MM/DD/YYYY", "2023-12-03"},
                       {"Jan 9", "DD/MM/YYYY", "2024-01-09"},     {"15/3", "DD/MM/YYYY", "2023-03-15"},
                       {"29/2", "DD/MM/YYYY", "2024-02-29"},      {"1/3/2022", "DD/MM/YYYY", "2022-03-01"},
                       {"2023-12-03", "MM/DD/YYYY", "2023-12-03"}};
    for (const auto& [text, pattern, day] : cases)
        EXPECT_EQ(Show(DayInShort(text, pattern, FakeLocale::British(), today)),
                  std::string(day) + " 00:00:00")
            << text;
    for (const char* text : {"", "31/2", "15", "15:00", "3/12 15:00", "1/3/2022 15:00", "soon"})
        EXPECT_EQ(DayInShort(text, "DD/MM/YYYY", FakeLocale::English(), today), std::nullopt) << text;
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
