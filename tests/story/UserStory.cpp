#include "story/Story.h"
#include "ui/list/EventRows.h"

#include <gmock/gmock.h>

using namespace kaz;
using testing::ElementsAre;

namespace {

// A user at the main window and its dialogs.
class UserStory : public testing::Test {
protected:
    void Start() {
        story.Start().ShowMain();
        story.Advance(1);
    }
    // Types into the editor what `fill` does, and saves.
    void InEditor(std::function<void(FakeWindow&)> fill) {
        story.machine.windows.OnModal([fill](FakeWindow& editor) {
            fill(editor);
            editor.Click(IDC_cmdSave);
        });
    }
    void Add(const std::string& description, int tab, std::function<void(FakeWindow&)> rule) {
        InEditor([=](FakeWindow& editor) {
            editor.Type(IDC_txtDesc, description);
            editor.Choose(IDC_TabStrip1, tab);
            rule(editor);
        });
        Main().Click(IDM_ADD);
    }
    FakeWindow& Main() { return *story.Main(); }
    std::vector<std::string> Shown(int column = kEventColumn) {
        return Main().Report(IDC_ListEvents).Column(column);
    }
    void Select(const std::vector<int>& rows) { Main().Report(IDC_ListEvents).UserSelects(rows); }

    Story story;
};

TEST_F(UserStory, ANewUserFindsEverythingAsItWasLeft) {
    Start();
    Add("Bins", 0, [](FakeWindow& editor) {
        if (!editor.Checked(IDC_chkDay + 3)) editor.Toggle(IDC_chkDay + 3);  // Thursday, tomorrow
    });
    Add("Rent", 1, [](FakeWindow& editor) {
        editor.Type(IDC_txtDayOfMonth, "31");
        editor.Choose(IDC_lstMonthNames, 12);
    });
    const auto every = [&](int period, int label, int days) {
        return [=, this](FakeWindow& editor) {
            editor.Type(period, "2");
            story.machine.dialogs.dates = {story.Today(days)};
            editor.Click(label);
        };
    };
    Add("Filter", 2, every(IDC_txtMonthlyPeriod, IDC_lblMonthlyStartDate, 4));
    Add("Football", 3, every(IDC_txtWeeklyPeriod, IDC_lblWeeklyStartDate, 5));
    Add("Club", 4, [](FakeWindow& editor) {
        editor.Choose(IDC_lstDayNumber, 4);
        editor.Choose(IDC_lstDayName, 5);
        editor.Choose(IDC_lstMonths, 0);
    });
    Add("Pills", 5, every(IDC_txtDailyPeriod, IDC_lblDailyStartDate, 2));
    EXPECT_THAT(story.machine.dialogs.messages, testing::IsEmpty());
    // 15 March 2023 is a Wednesday; the last Friday of the month is the same day as its 31st.
    ASSERT_THAT(Shown(), ElementsAre("Bins", "Pills", "Filter", "Football", "Rent", "Club"));
    EXPECT_THAT(Shown(kLeftColumn), ElementsAre("0000", "0002", "0004", "0005", "0016", "0016"));

    const auto rowOf = [this](const std::string& text) {
        const auto shown = Shown();
        return static_cast<int>(std::find(shown.begin(), shown.end(), text) - shown.begin());
    };
    Select({rowOf("Pills")});
    InEditor([](FakeWindow& editor) {
        EXPECT_EQ("Pills", editor.Text(IDC_txtDesc));
        editor.Type(IDC_txtDesc, "Vitamins\r\nwith water");
    });
    Main().Click(IDM_EDIT);
    EXPECT_EQ("Vitamins  with water", Shown().at(static_cast<std::size_t>(rowOf("Vitamins  with water"))));

    Select({rowOf("Club"), rowOf("Bins")});
    story.machine.dialogs.yesNo = {true};
    Main().Click(IDM_DELETE);
    const auto left = Shown();
    EXPECT_EQ(4U, left.size());
    EXPECT_GT(story.host.todays.size() + story.host.upcoming.size(), 0U);

    Main().Click(IDM_QUIT);
    story.machine.windows.Advance(100);
    EXPECT_EQ(nullptr, story.Main());
    story.component->ShutDown();
    const std::string events = story.Saved("Events.xml");
    Start();
    EXPECT_EQ(left, Shown());
    EXPECT_EQ(events, story.Saved("Events.xml"));
}

}  // namespace
