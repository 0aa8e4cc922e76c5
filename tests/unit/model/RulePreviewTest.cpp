#include "model/RulePreview.h"

#include "fakes/Sample.h"

#include <gtest/gtest.h>

#include <functional>

namespace kaz {
namespace {

constexpr DateValue kWednesday(45000);

struct Case {
    std::function<void(clsEvent&)> rule;
    const char* dates;
    const char* warning;
};

// On Wednesday, 15 March 2023, at nine.
TEST(RulePreview, ShowsTheNextDatesAndWarnsOfSurprises) {
    const auto cut = "Where the month has no day ";
    const auto moves = "Where the month has no such day";
    const auto from = [](std::int32_t type, std::int16_t period, DateValue start) {
        return [=](clsEvent& event) {
            event.RecurrenceType(type);
            event.Period(period);
            event.StartDate(start);
        };
    };
    const auto monthly = [](std::int16_t day, std::int16_t month) {
        return [=](clsEvent& event) {
            event.RecurrenceType(RecurDayOfMonth);
            event.DayOfMonth(day);
            event.MonthNumber(month);
        };
    };
    const DateValue endOfJanuary = DateValue::FromCivil(2023, 1, 31);
    const auto alarm = [](int hour, bool daily, int inDays = 0, std::int16_t warning = 0) {
        return [=](clsEvent& event) {
            const DateValue day = kWednesday.PlusDays(inDays);
            event = WithAlarm(daily ? Daily("", "", day) : OneOff("", "", day), hour, 0, warning);
        };
    };
    const Case cases[] = {
        {[](clsEvent& event) { event.WeekDays(8 + 2); }, "15/03 20/03 22/03 27/03 29/03", ""},
        {[](clsEvent& event) { event.Recurring(false), event.WeekDays(2); }, "20/03", ""},
        {[](clsEvent&) {}, "", ""},  // no weekday at all
        {monthly(31, 13), "31/03 30/04 31/05 30/06 31/07", cut},
        {monthly(31, 1), "31/01 31/01 31/01 31/01 31/01", ""},
        {monthly(29, 2), "29/02 28/02 28/02 28/02 29/02", cut},
        {monthly(0, 13), "", ""},
        {from(RecurEveryNMonths, 1, endOfJanuary), "03/04 03/05 03/06 03/07 03/08", moves},
        {from(RecurEveryNMonths, 2, endOfJanuary), "31/03 31/05 31/07 01/10 01/12", moves},
        {from(RecurEveryNMonths, 12, endOfJanuary), "31/01 31/01 31/01 31/01 31/01", ""},
        {from(RecurEveryNMonths, 1, endOfJanuary.PlusDays(-3)), "28/03 28/04 28/05 28/06 28/07", ""},
        {from(RecurEveryNWeeks, 5000, endOfJanuary), "", ""},
        {alarm(8, true), "15/03 16/03 17/03 18/03 19/03",
         "The alarm's time has passed today; it sounds from the next date on."},
        {alarm(8, false), "15/03", "The alarm's time has passed today; it will not sound."},
        {alarm(9, false), "15/03", ""},
        {alarm(0, false, 1, 20), "16/03", "The alarm sounds on the day before."},
        {alarm(0, true, 0, 20), "15/03 16/03 17/03 18/03 19/03",
         "The alarm sounds on the day before. The alarm's time has passed; it sounds from the next date on."},
        {from(RecurEveryNDays, 0, endOfJanuary), "", ""},
        {from(RecurEveryNDays, 1, DateValue(kLastDay - 1)), "30/12 31/12", ""},
    };
    for (const Case& rule : cases) {
        clsEvent event;
        event.Recurring(true);
        rule.rule(event);
        const RulePreview preview(event, DateValue(kWednesday.Day(), 9 * 3600));
        std::string dates;
        for (const DateValue date : preview.Dates()) {
            const CivilDate civil = date.Civil();
            char text[16];
            std::snprintf(text, sizeof text, "%s%02d/%02d", dates.empty() ? "" : " ", civil.day, civil.month);
            dates += text;
        }
        EXPECT_EQ(rule.dates, dates);
        EXPECT_EQ(rule.warning, preview.Warning().substr(0, std::string(rule.warning).size())) << dates;
        EXPECT_EQ(*rule.warning == '\0', preview.Warning().empty()) << dates;
    }
    EXPECT_EQ("", RulePreview().DatesLine("DD/MM/YYYY", {}));
}

}  // namespace
}  // namespace kaz
