#include "ModalDriver.h"
#include "TestPrinter.h"
#include "fakes/FakeLocale.h"
#include "forms/win32/Win32Printer.h"
#include "ui/print/CalendarPages.h"
#include "ui/print/PrintLists.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

MonthGrid March() {
    MonthGrid grid(3, 2023, DateValue::FromCivil(2023, 3, 15), false);
    const auto add = [&](const char* text, int day, int hour = 0) {
        clsEvent event;
        event.Desc(text);
        event.AlarmSet(hour > 0);
        event.DueTime(DateValue::FromTime(hour, 30));
        event.DueDate(grid.DateOf(day));
        grid.Place(event);
    };
    for (int day = 2; day <= 31; day += 7)
        add("Put the bins out", day, 7);
    for (int day = 6; day <= 31; day += 7)
        add("Team lunch at the Café Central", day, 12);
    add("Mum's birthday", 18);
    add("Renew the passport before the summer holidays start in July", 22);
    for (int hour = 8; hour < 18; ++hour)
        add("Hairdresser", 29, hour);
    return grid;
}

// Prints what `layOut` makes, as the user who presses the dialog's first button.
template <class LayOut>
std::vector<TestPrinter::Sheet> Printed(const std::string& name, Orientation orientation, LayOut layOut) {
    const TestPrinter paper(name);
    ModalDriver user;
    user.Press(IDOK);
    const auto job = Win32Printer(GetModuleHandleW(nullptr)).Ask(name, orientation);
    EXPECT_TRUE(user.Done());
    if (!job) return {};
    EXPECT_TRUE(job->Print(layOut(*job)));
    return paper.Sheets();
}

// White margins and something inside, on sheets of that size.
void CheckSheets(const std::vector<TestPrinter::Sheet>& sheets, int width, int height) {
    constexpr int kMargin = 20 * TestPrinter::kResolution * 10 / 254 - 1;
    for (const TestPrinter::Sheet& sheet : sheets) {
        ASSERT_FALSE(sheet.dots.empty());
        EXPECT_NEAR(width, sheet.width, 2);
        EXPECT_NEAR(height, sheet.height, 2);
        EXPECT_TRUE(sheet.IsWhite(0, 0, sheet.width, kMargin));
        EXPECT_TRUE(sheet.IsWhite(0, sheet.height - kMargin, sheet.width, sheet.height));
        EXPECT_TRUE(sheet.IsWhite(0, 0, kMargin, sheet.height));
        EXPECT_TRUE(sheet.IsWhite(sheet.width - kMargin, 0, sheet.width, sheet.height));
        EXPECT_FALSE(sheet.IsWhite(kMargin, kMargin, sheet.width - kMargin, sheet.height / 4));
    }
}

TEST(PrinterTest, PrintsTheListsAndTheCalendar) {
    std::vector<std::string> tasks{
        "Buy a present for Mum's birthday", "Café Central: book a table for eight",
        "Find out which of the three offers for the new heating is the best one, and "
        "ask the neighbours what they have paid for theirs last year"};
    for (int room = 1; room <= 40; ++room)
        tasks.push_back("Paint room " + std::to_string(room));
    const auto taskPages = Printed("print-tasks", Orientation::Portrait, [&](const Paper& paper) {
        return LayOutList(TasksOnPaper(tasks, "Printed 03/15/2023"), paper);
    });
    EXPECT_EQ(2U, taskPages.size());
    CheckSheets(taskPages, 496, 702);

    const MonthGrid grid = March();
    const LocaleData locale = FakeLocale::English();
    const auto monthPages = Printed("print-month", Orientation::Portrait, [&](const Paper& paper) {
        return LayOutList(MonthOnPaper(MonthList(grid, locale), "Printed 03/15/2023"), paper);
    });
    EXPECT_EQ(1U, monthPages.size());
    CheckSheets(monthPages, 496, 702);

    const auto calendar = Printed("print-calendar", Orientation::Landscape, [&](const Paper& paper) {
        return LayOutCalendar(
            {"Calendar for March 2023", "From 03/01/2023 to 03/31/2023  Printed 03/15/2023", grid, locale},
            paper);
    });
    EXPECT_EQ(1U, calendar.size());
    CheckSheets(calendar, 496, 702);  // what is printed is turned, not the sheet
}

TEST(PrinterTest, GivingUpPrintsNothing) {
    const TestPrinter paper("print-nothing");
    ModalDriver user;
    user.Press(IDCANCEL);
    EXPECT_EQ(nullptr, Win32Printer(GetModuleHandleW(nullptr)).Ask("Nothing", Orientation::Portrait));
    EXPECT_TRUE(user.Done());
}

}  // namespace
}  // namespace kaz
