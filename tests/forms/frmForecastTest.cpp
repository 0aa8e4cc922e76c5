#include "FormTest.h"

namespace kaz {
namespace {

class frmForecastTest : public FormTest {
protected:
    std::string Row(std::size_t row) {
        std::string text;
        for (int column = 0; column < 4; ++column)
            text += (column ? "|" : "") + stage->Column(*window, IDC_lstForecast, column).at(row);
        return text;
    }
};

TEST_F(frmForecastTest, ListsTheRemindersOfFourteenDaysFromAPickedDayAndPrintsThem) {
    app.settings.StoreSetting("Networked", true);
    app.settings.StoreSetting("DateStyle", std::int16_t{1});
    ShareAsAnn({SharedBy("Ann", WithAlarm(OneOff("9", "Party", kToday.PlusDays(1)), 20, 0))});
    Changing(*app.events) = {
        Of("Smith", WithAlarm(Daily("1", "Pills", kToday, 7), 0, 10, 20)),
        Of("Smith", Warned(OneOff("2", "Trip", kToday.PlusDays(1)), 1)),
        Of("Smith", Running(WithAlarm(OneOff("3", "Save", kToday), 9, 30), "C:\\x.cmd"))};
    OpenMainAndTick();
    Click(IDM_FORECAST);
    ASSERT_TRUE(TurnTo(IDD_FORECAST));
    const char* expected[] = {"Wed 15/03/2023, today|TODAY!|00:10|Pills",
                              "|Runs a file|09:30|Save - C:\\x.cmd",
                              "|COMING UP||In 1 day: Trip",
                              "Thu 16/03/2023|TODAY!||Trip",
                              "|ALARM!|20:00|Party (Ann)",
                              "Fri 17/03/2023|||Nothing"};
    for (std::size_t row = 0; row < std::size(expected); ++row)
        EXPECT_EQ(expected[row], Row(row));
    machine.dialogs.dates = {kToday.PlusDays(6), kToday.PlusDays(-1)};
    Click(IDC_cmdForecastDay);
    EXPECT_EQ("Tue 21/03/2023|ALARM!|23:50|Pills", Row(0));
    EXPECT_THAT(Text(IDC_lblForecast), HasSubstr("14 days from Tuesday, 21/03/2023 on"));
    Click(IDC_cmdForecastDay);
    EXPECT_THAT(Told(), ElementsAre(StartsWith("That day has passed")));
    EXPECT_EQ(expected[0], Row(0));
    Click(IDC_cmdForecastPrint);
    EXPECT_FALSE(machine.printer.printed.empty());
    Click(IDC_cmdForecastClose);
    stage->Wait(50);
    EXPECT_EQ(nullptr, stage->Find(IDD_FORECAST));
}

}  // namespace
}  // namespace kaz
