#include "fakes/Matchers.h"
#include "story/Story.h"
#include "ui/list/EventRows.h"

using namespace kaz;

namespace {

FakeWindow& MainOf(Story& story) { return *story.Main(); }

void Open(Story& story) {
    story.Start().ShowMain();
    story.Advance(1);
}

void Add(Story& story, const std::string& description, int tab,
         const std::function<void(FakeWindow&)>& rule) {
    story.machine.windows.OnModal([=](FakeWindow& editor) {
        editor.Type(IDC_txtDesc, description);
        editor.Choose(IDC_TabStrip1, tab);
        rule(editor);
        editor.Click(IDC_cmdSave);
    });
    MainOf(story).Click(IDM_ADD);
}

std::vector<std::string> Shown(Story& story, int column) {
    return MainOf(story).Report(IDC_ListEvents).Column(column);
}

}  // namespace

// The rules as a person means them: 15 March 2023 is a Wednesday.
TEST(User, FindsAnEventOfEachKindOnItsDayAndAfterARestartAsItWas) {
    Story story;
    Open(story);
    Add(story, "Bins", 0, [](FakeWindow& editor) {
        if (!editor.Checked(IDC_chkDay + 3)) editor.Toggle(IDC_chkDay + 3);  // Thursday, beside today's
    });
    Add(story, "Rent", 1, [](FakeWindow& editor) {
        editor.Type(IDC_txtDayOfMonth, "31");
        editor.Choose(IDC_lstMonthNames, 12);
    });
    const auto every = [&](int period, int label, int days) {
        return [=, &story](FakeWindow& editor) {
            editor.Type(period, "2");
            story.machine.dialogs.dates = {story.Today(days)};
            editor.Click(label);
        };
    };
    Add(story, "Filter", 2, every(IDC_txtMonthlyPeriod, IDC_lblMonthlyStartDate, 4));
    Add(story, "Football", 3, every(IDC_txtWeeklyPeriod, IDC_lblWeeklyStartDate, 5));
    Add(story, "Club", 4, [](FakeWindow& editor) {
        editor.Choose(IDC_lstDayNumber, 4);
        editor.Choose(IDC_lstDayName, 5);
        editor.Choose(IDC_lstMonths, 0);
    });
    Add(story, "Pills", 5, every(IDC_txtDailyPeriod, IDC_lblDailyStartDate, 2));
    EXPECT_THAT(story.machine.dialogs.messages, IsEmpty());
    const auto events = ElementsAre("Bins", "Pills", "Filter", "Football", "Rent", "Club");
    ASSERT_THAT(Shown(story, kEventColumn), events);
    // The last Friday of the month is the same day as its 31st.
    EXPECT_THAT(Shown(story, kLeftColumn), ElementsAre("0000", "0002", "0004", "0005", "0016", "0016"));

    MainOf(story).Click(IDM_QUIT);
    story.machine.windows.Advance(100);
    EXPECT_EQ(nullptr, story.Main());
    story.component->ShutDown();
    const std::string saved = story.Saved("Events.xml");
    Open(story);
    EXPECT_THAT(Shown(story, kEventColumn), events);
    EXPECT_EQ(saved, story.Saved("Events.xml"));
}
