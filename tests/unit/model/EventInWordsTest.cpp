#include "model/words/EventInWords.h"

#include "base/DateText.h"
#include "base/Text.h"
#include "fakes/Matchers.h"
#include "fakes/TestData.h"
#include "model/RuleInWords.h"
#include "model/words/DraftInWords.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

WordsContext At(const std::string& when) {
    const std::string now = when.size() > 1 ? when : "2026-11-22 09:00";
    return {{TextToDate(now, {}), when == "D"}, {{3, "Work"}, {4, "Birthdays"}, {7, "Night shift"}}, 1};
}

std::string Said(const clsEvent& event, const WordsContext& context) {
    std::string said = event.Desc() + "; " + std::to_string(event.RecurrenceType()) + " " +
                       RuleInWords(event, {}, context.view.dayBeforeMonth) + "; " +
                       FormatDate(event.DueDate(), "YYYY-MM-DD", {});
    if (event.AlarmSet()) said += FormatDate(event.DueTime(), " HH:NN", {});
    if (event.MinutesWarning() > 0) said += " !" + std::to_string(event.MinutesWarning());
    if (event.DaysWarning() > 0) said += " ~" + std::to_string(event.DaysWarning());
    for (const NamedCategory& category : context.categories)
        if (category.slot == event.Layer()) said += " #" + category.name;
    if (event.Extras().lastDay) said += " until " + FormatDate(*event.Extras().lastDay, "YYYY-MM-DD", {});
    return said;
}

TEST(EventInWords, ReadsWhatItsTableSays) {
    for (const auto& row : GoldenTable("words.txt")) {
        const WordsContext context = At(row[0]);
        const EventInWords read = ReadInWords(row[1], context);
        const bool isRefused = row[2].starts_with('-');
        EXPECT_EQ(isRefused ? "" : row[2], read.event ? Said(*read.event, context) : "")
            << row[1] << ": " << read.refusal;
        EXPECT_THAT(read.refusal, HasSubstr(std::string(isRefused ? Trim(row[2].substr(1)) : "")));
    }
}

TEST(EventInWords, IsShownAsItWasUnderstood) {
    const struct {
        const char *line, *what, *when;
    } cases[] = {
        {"dentist tomorrow 15:30 !30 #Work", "dentist:  Mon 23 Nov 2026, 15:30 (rings at 15:00), Work",
         "Once."},
        {"bins every 2 weeks on tuesday ~1", "bins:  Tue 24 Nov 2026, no alarm, announced 1 day ahead",
         "Every 2 weeks on Tuesday:  Tue 24 Nov 2026,  Tue 8 Dec 2026,  Tue 22 Dec 2026 ..."},
        {"pills every day 10:00 2 times", "pills:  Sun 22 Nov 2026, 10:00",
         "Every day:  Sun 22 Nov 2026,  Mon 23 Nov 2026  Last date:  Mon 23 Nov 2026."},
        {"train today 9:10 !20", "train:  Sun 22 Nov 2026, 09:10 (rings at 08:50)",
         "Once.  The alarm's time has passed today; it will not sound."},
    };
    const WordsContext context = At("D");
    for (const auto& each : cases) {
        const EventInWords read = ReadInWords(each.line, context);
        ASSERT_TRUE(read.event) << each.line;
        const DraftInWords draft = Describe(*read.event, context, {});
        EXPECT_EQ(each.what, draft.what);
        EXPECT_THAT(draft.when, StartsWith(each.when));
    }
}

}  // namespace
}  // namespace kaz
