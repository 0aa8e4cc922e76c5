#include "base/DateValue.h"

#include "fakes/ErrorOf.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace kaz {
namespace {

constexpr int kInvalidCall = 5;

TEST(DateValue, AnchorsOfTheCalendar) {
    struct {
        CivilDate civil;
        std::int32_t day;
        int fromSunday;
    } const anchors[] = {{{1899, 12, 30}, 0, 7},      {{1899, 12, 31}, 1, 1},       {{1900, 3, 1}, 61, 5},
                         {{1900, 2, 28}, 60, 4},      {{2000, 2, 29}, 36585, 3},    {{2023, 3, 15}, 45000, 4},
                         {{100, 1, 1}, kFirstDay, 6}, {{9999, 12, 31}, kLastDay, 6}};
    for (const auto& [civil, day, fromSunday] : anchors) {
        const DateValue date = DateValue::FromCivil(civil.year, civil.month, civil.day);
        EXPECT_EQ(date.Day(), day);
        EXPECT_EQ(date.Civil(), civil);
        EXPECT_EQ(date.WeekdayFromSunday().number, fromSunday) << day;
        EXPECT_EQ(date.WeekdayFromMonday().number, (fromSunday + 5) % 7 + 1) << day;
    }
}

// Every month of the whole range, so that no leap rule and no carry is left out.
TEST(DateValue, MonthsFollowOneAnotherWithoutGap) {
    DateValue next = DateValue::FromCivil(100, 1, 1);
    for (int year = 100; year <= 9999; ++year) {
        for (int month = 1; month <= 12; ++month) {
            ASSERT_EQ(DateValue::FromCivil(year, month, 1), next);
            ASSERT_EQ(DateValue::FromCivil(100, month + (year - 100) * 12, 1), next);
            if (year == 9999 && month == 12) break;
            next = DateValue::FromCivil(year, month + 1, 1);
            const CivilDate last = next.PlusDays(-1).Civil();
            ASSERT_EQ(DateValue::FromCivil(year, month + 1, 0).Civil(), last);
            ASSERT_EQ(last.month, month);
        }
    }
}

TEST(DateValue, OverflowingPartsCarry) {
    EXPECT_EQ(DateValue::FromCivil(2023, 2, 31).Civil(), (CivilDate{2023, 3, 3}));
    EXPECT_EQ(DateValue::FromCivil(2024, 2, 31).Civil(), (CivilDate{2024, 3, 2}));
    EXPECT_EQ(DateValue::FromCivil(2023, 0, 1).Civil(), (CivilDate{2022, 12, 1}));
    EXPECT_EQ(DateValue::FromCivil(2023, -11, 1).Civil(), (CivilDate{2022, 1, 1}));
    EXPECT_EQ(DateValue::FromCivil(2023, 25, -1).Civil(), (CivilDate{2024, 12, 30}));
    EXPECT_EQ(DateValue::FromCivil(0, 0, 100031), DateValue::FromCivil(0, 1, 100000));
    for (const int far : {INT_MIN, -1'000'000, 1'000'000'000, INT_MAX}) {
        EXPECT_EQ(ErrorOf([&] { DateValue::FromCivil(far, 1, 1); }), kInvalidCall);
        EXPECT_EQ(ErrorOf([&] { DateValue::FromCivil(2023, far, 1); }), kInvalidCall);
    }
    EXPECT_EQ(ErrorOf([] { DateValue::FromCivil(100, 1, 0); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([] { DateValue::FromCivil(9999, 12, 32); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([] { DateValue::FromCivil(2023, 1, INT_MAX); }), kInvalidCall);
}

TEST(DateValue, ArithmeticStopsAtTheEndsOfTheRange) {
    const DateValue last(kLastDay, 86399);
    EXPECT_EQ(ErrorOf([&] { last.PlusDays(1); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([&] { last.PlusMinutes(1); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([&] { last.PlusDays(INT_MAX); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([] { DateValue(kFirstDay).PlusMinutes(-1); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([] { DateValue::FromTime(24, 0); }), kInvalidCall);
    EXPECT_EQ(ErrorOf([] { DateValue::FromTime(-1, 0); }), kInvalidCall);
    EXPECT_EQ(DateValue(0, 30).PlusMinutes(-1), DateValue(-1, 86370));
    EXPECT_EQ(DateValue(0, 30).PlusMinutes(-1440 * 2), DateValue(-2, 30));
    EXPECT_EQ(DateValue(10, 86399).PlusMinutes(1), DateValue(11, 59));
}

TEST(DateValue, SerialsKeepDayAndSecond) {
    for (const std::int32_t day : {kFirstDay, -36522, -1, 1, 45000, kLastDay})
        for (std::int32_t second = 0; second < 86400; second += 7) {
            const DateValue date(day, second);
            ASSERT_EQ(DateValue::FromSerial(date.Serial()), date) << day << ' ' << second;
        }
    // Before day zero the fraction still counts forward from midnight.
    EXPECT_EQ(DateValue::FromSerial(-1.25), DateValue(-1, 6 * 3600));
    EXPECT_EQ(DateValue::FromSerial(-0.25), DateValue(0, 6 * 3600));
    EXPECT_EQ(DateValue::FromSerial(44999.9999999), DateValue(45000));
    EXPECT_EQ(DateValue::FromSerial(-5.9999999), DateValue(-4));
    for (const double bad :
         {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, kLastDay + 1.0, kFirstDay - 1.0, kLastDay + 0.9999999})
        EXPECT_EQ(ErrorOf([&] { DateValue::FromSerial(bad); }), 6) << bad;
}

}  // namespace
}  // namespace kaz
