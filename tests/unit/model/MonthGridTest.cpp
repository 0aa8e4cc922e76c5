#include "model/MonthGrid.h"

#include "base/RuntimeError.h"
#include "fakes/FakeLocale.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"
#include "model/MonthList.h"

namespace kaz {
namespace {

const DateValue kToday = DateValue::FromCivil(2023, 3, 15);

std::vector<int> DaysOf(const MonthGrid& grid) {
    std::vector<int> days;
    for (int day = 1; day <= grid.Length(); ++day)
        days.insert(days.end(), grid.Count(day), day);
    return days;
}

TEST(MonthGrid, DaysLieUnderTheirWeekdays) {
    for (int year : {100, 1900, 2000, 2023, 9999})
        for (int month = 1; month <= 12; ++month) {
            const MonthGrid grid(month, year, kToday, false);
            int days = 0;
            for (int box = 0; box < MonthGrid::kBoxes; ++box) {
                const int day = grid.DayIn(box);
                if (day == 0) continue;
                ++days;
                EXPECT_EQ(days, day);
                EXPECT_EQ(box, grid.BoxOf(day));
                const CivilDate date = grid.DateOf(day).Civil();
                EXPECT_EQ(std::tuple(year, month, day), std::tuple(date.year, date.month, date.day));
                EXPECT_EQ(box % MonthGrid::kColumns + 1, grid.DateOf(day).WeekdayFromSunday().number);
            }
            EXPECT_EQ(grid.Length(), days);
        }
    EXPECT_EQ(0, MonthGrid(10, 2023, kToday, false).BoxOf(1));
    EXPECT_EQ(36, MonthGrid(7, 2023, kToday, false).BoxOf(31));
    EXPECT_EQ(15, MonthGrid(3, 2023, kToday, false).Today());
    EXPECT_EQ(0, MonthGrid(3, 2024, kToday, false).Today());
    EXPECT_THROW(MonthGrid(13, 2023, kToday, false), RuntimeError);
    EXPECT_THROW(MonthGrid(1, 99, kToday, false), RuntimeError);
}

TEST(MonthGrid, TheLastMonthOfTheCalendarHasAnEnd) {
    MonthGrid grid(12, 9999, kToday, false);
    grid.Place(Daily("000001", "Tea", kToday));
    EXPECT_EQ(31U, DaysOf(grid).size());
}

TEST(MonthGrid, TextsAreCutInTheBoxAndWholeElsewhere) {
    clsEvent dentist = OneOff("000001", "Dentist\r\nbring the X-ray", kToday);
    dentist.AlarmSet(true);
    dentist.DueTime(DateValue::FromTime(9, 5));
    const clsEvent rent = OneOff("000002", "Rent", kToday);
    MonthGrid alone(3, 2023, kToday, false);
    MonthGrid shared(3, 2023, kToday, true);
    for (MonthGrid* grid : {&alone, &shared}) {
        grid->Place(dentist);
        grid->Place(rent);
        grid->Place(OneOff("000003", "", kToday.PlusDays(16)));
    }
    EXPECT_EQ("Dentist  bri", alone.LineInBox(15, 0));
    EXPECT_EQ("Dentist  bri [Single]", shared.LineInBox(15, 0));
    EXPECT_EQ("Rent [Single]", shared.LineInBox(15, 1));
    EXPECT_EQ("09:05  Dentist  bring the X-ray", alone.FullLine(15, 0));
    EXPECT_EQ("Rent [Single]", shared.FullLine(15, 1));

    const MonthList list(shared, FakeLocale::German());
    EXPECT_EQ("Events for März 2023\r\n"
              "Mi\t15\tDentist  bring the X-ray\r\n"
              "\t\tRent\r\n"
              "Fr\t31\t\r\n",
              list.Text());
}

}  // namespace
}  // namespace kaz
