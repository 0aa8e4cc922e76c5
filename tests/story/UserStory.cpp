#include "story/Story.h"
#include "ui/list/EventRows.h"

#include <gmock/gmock.h>

using namespace kaz;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

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

TEST_F(UserStory, AlarmsANewDayAndOthersSavesComeThroughWhileTheEditorIsOpen) {
    story.Settings("OWNER,Smith\r\nNETWORKED,TRUE\r\nSHAREDDATAPATH,C:\\Share\r\n");
    story.machine.files.Put("C:\\Share\\KAZShared.ini", "Smith\r\nAnn\r\n");
    clsEvent tea = WithAlarm(OneOff("000001", "Tea", story.Today()), 9, 1);
    const clsEvent walk = OneOff("000002", "Walk", story.Today(1));
    clsEvent bread = WithAlarm(Daily("000003", "Bread", story.Today()), 9, 4);
    for (clsEvent* event : {&tea, &bread})
        event->Owner("Smith");
    story.Events({tea, walk, bread});
    Start();

    InEditor([&](FakeWindow& editor) {
        editor.Type(IDC_txtDesc, "New");
        story.Advance(90);
        EXPECT_THAT(story.Lines("ALARM!"), ElementsAre("Tea"));
        clsEvent anns = OneOff("000009", "Party", story.Today(1));
        anns.Owner("Ann");
        anns.SharedEvent = true;
        story.machine.files.Put("C:\\Share\\Shared_Ann.xml", FileOf({anns}));
        story.Jump(1);
        story.Advance(35);
        EXPECT_THAT(story.Lines("TODAY!"), testing::Contains("Walk"));
        EXPECT_THAT(Shown(), testing::Contains("Party"));
        EXPECT_EQ("New", editor.Text(IDC_txtDesc));
    });
    Main().Click(IDM_ADD);
    EXPECT_THAT(Shown(), testing::Contains("New"));
    EXPECT_THAT(story.Saved("Events.xml"), HasSubstr("New"));
    EXPECT_THAT(story.Saved("Expired.xml"), HasSubstr("Tea"));

    // The event that is being edited is deleted by another program.
    Select({0});
    story.machine.dialogs.yesNo = {false};
    InEditor([&](FakeWindow& editor) {
        editor.Type(IDC_txtDesc, "Gone");
        story.Events({});
        story.Advance(130);
        EXPECT_THAT(story.Lines("ALARM!"), testing::Contains("Bread"));
    });
    Main().Click(IDM_EDIT);
    story.Advance(35);
    EXPECT_THAT(story.machine.dialogs.questions.back(), HasSubstr("was deleted or moved"));
    EXPECT_THAT(story.Saved("Events.xml"), Not(HasSubstr("Gone")));
}

}  // namespace
