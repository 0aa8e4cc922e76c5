#include "ui/frmMain.h"

#include "MainWindowFixture.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class frmMainTest : public MainWindowFixture {};

TEST_F(frmMainTest, LoadingFillsTheCategoriesThenTheListThenRestoresTheSize) {
    Logged();
    Open();
    EXPECT_THAT(Logged(), AllOf(testing::StartsWith("Copying layer names into main form\n"
                                                    "Clearing layers combo\n"
                                                    "Added Shared\n"
                                                    "Added Layer 1\n"),
                                HasSubstr("Added All Categories\n"
                                          "Setting index to 20\n"
                                          "Filling events\n"
                                          "Showing local events\n"
                                          "No local events\n"
                                          "Showing shared events\n"
                                          "Selecting current event\n"
                                          "Setting main window width and height\n")));
    EXPECT_EQ(21U, window->Items(IDC_cmbCategories).size());
    EXPECT_EQ("All Categories", window->Text(IDC_cmbCategories));
    EXPECT_EQ(9U, List().Columns().size());
    EXPECT_EQ("Left", List().Columns().front().header);
    EXPECT_EQ("Shared With", List().Columns().back().header);
    EXPECT_EQ(kLeftColumn, List().sortColumn);
    EXPECT_TRUE(List().sortAscending);
    EXPECT_THAT(List().Selection(), IsEmpty());
    EXPECT_FALSE(main->IsShown());
}

TEST_F(frmMainTest, ListsTheUndeletedLocalEventsOfTheChosenCategory) {
    Add(*app.events, "work", 1).Layer(2);
    Add(*app.events, "home", 2).Layer(3);
    Add(*app.events, "gone", 3).Deleted = true;
    Add(*app.events, "unset", 4).Layer(0);
    Open();
    EXPECT_EQ("work|home|unset", Column(kEventColumn));
    EXPECT_EQ(1, app.events->AllEvents()[3].Layer());

    window->Choose(IDC_cmbCategories, 3);
    EXPECT_EQ("home", Column(kEventColumn));
    window->Choose(IDC_cmbCategories, 19);
    EXPECT_EQ("", Column(kEventColumn));
    EXPECT_THAT(List().Selection(), IsEmpty());
}

TEST_F(frmMainTest, ExpiredEventsAreShownWhileTickedWithTheChosenCategory) {
    Add(*app.expired, "old", -3);
    Add(*app.expired, "older", -400).Layer(7);
    Add(*app.expired, "removed", -1).Deleted = true;
    Open();
    EXPECT_EQ("", Column(kEventColumn));
    window->Toggle(IDC_chkExpired);
    EXPECT_EQ("old|older", Column(kEventColumn));
    EXPECT_EQ("E|E", Column(kTypeColumn));
    EXPECT_EQ(Colour::Rgb(255, 0, 0), List().CellColour(0, kEventColumn));
    window->Choose(IDC_cmbCategories, 7);
    EXPECT_EQ("older", Column(kEventColumn));
    window->Toggle(IDC_chkExpired);
    EXPECT_EQ("", Column(kEventColumn));
}

TEST_F(frmMainTest, TheExpiredFileIsReadAgainWhenAnotherProgramWroteItAndOnlyThen) {
    Add(*app.expired, "old", -3);
    ASSERT_TRUE(app.expired->SaveDB());
    const std::string saved = machine.files.Text("C:\\KAZ\\Expired.xml");
    Add(*app.expired, "not saved yet", -2);
    Open();
    window->Toggle(IDC_chkExpired);
    EXPECT_EQ("old|not saved yet", Column(kEventColumn));
    machine.files.Put("C:\\KAZ\\Expired.xml", saved);
    window->Click(IDM_REFRESH);
    EXPECT_EQ("old", Column(kEventColumn));
}

TEST_F(frmMainTest, SharedEventsOfOthersAreBroughtUpToDateInANetworkOnly) {
    clsDbXml anns(app.Storage());
    clsEvent weekly = Add(anns, "weekly", -1);
    weekly.Recurring(true);
    clsEvent past = Add(anns, "past", -2);
    for (clsEvent* event : {&weekly, &past}) {
        event->Owner("Ann");
        event->RecurrenceType(RecurEveryNWeeks);
        event->Period(1);
        event->StartDate(event->DueDate());
    }
    ShareAsAnn({weekly, past, Add(anns, "of this user", 1)});
    Open();
    EXPECT_EQ("", Column(kEventColumn));

    app.settings.StoreSetting("Networked", true);
    Logged();
    window->Click(IDM_REFRESH);
    EXPECT_EQ("past|weekly", Column(kEventColumn));
    EXPECT_EQ("---|0006", Column(kLeftColumn));
    EXPECT_EQ("E|S", Column(kTypeColumn));
    EXPECT_THAT(Logged(),
                AllOf(HasSubstr("Showing shared events\nLoading multiple databases from C:\\Share\n"),
                      HasSubstr("Finished displaying shared events\n")));

    ShareAsAnn({});
    window->Click(IDM_REFRESH);
    EXPECT_EQ("", Column(kEventColumn));
    EXPECT_THAT(Logged(), HasSubstr("No events in shared databases\n"));
}

TEST_F(frmMainTest, RefillingKeepsThePlaceInTheList) {
    for (int days = 1; days <= 4; ++days)
        Add(*app.events, std::string("event ") + std::to_string(days), days);
    Open();
    EXPECT_THAT(List().Selection(), ElementsAre(0));
    List().UserSelects({3});
    window->Click(IDM_REFRESH);
    EXPECT_THAT(List().Selection(), ElementsAre(3));
    EXPECT_EQ(3, List().scrolledTo);

    app.events->AllEvents()[1].Deleted = true;
    window->Click(IDM_REFRESH);
    EXPECT_THAT(List().Selection(), ElementsAre(0));
}

TEST_F(frmMainTest, SortingCarriesTheSelectionAlong) {
    for (const char* name : {"c", "a", "d", "b"})
        Add(*app.events, name, app.events->RecordCount());
    Open();
    List().UserSelects({0, 1});  // c and a, a is current
    window->Raise(IDC_ListEvents, Raised::ColumnClick, kEventColumn);
    EXPECT_EQ("d|c|b|a", Column(kEventColumn));
    EXPECT_THAT(List().Selection(), testing::UnorderedElementsAre(1, 3));
    EXPECT_EQ(3, List().Current());
    EXPECT_EQ(kEventColumn, List().sortColumn);
    EXPECT_FALSE(List().sortAscending);
}

TEST_F(frmMainTest, FindStartsAtTheTopAndFindNextBehindTheSelectedRow) {
    for (const char* name : {"Tea with Ann", "Coffee", "tea with Bob"})
        Add(*app.events, name, app.events->RecordCount());
    Open();
    List().UserSelects({1, 2});
    machine.dialogs.inputs = {"TEA"};
    window->Click(IDM_FIND);
    EXPECT_THAT(List().Selection(), ElementsAre(0));
    window->Click(IDM_FINDNEXT);
    EXPECT_THAT(List().Selection(), ElementsAre(2));
    EXPECT_EQ(2, List().scrolledTo);
    window->Click(IDM_FINDNEXT);  // there is no third: the selection stays
    EXPECT_THAT(List().Selection(), ElementsAre(2));
    EXPECT_THAT(machine.dialogs.messages, ElementsAre("No further event contains \"TEA\"."));

    window->Click(IDM_FIND);  // cancelled
    machine.dialogs.inputs = {""};
    window->Click(IDM_FIND);
    EXPECT_THAT(machine.dialogs.questions,
                ElementsAre("Search|Enter search term|", "Search|Enter search term|TEA",
                            "Search|Enter search term|TEA"));
    EXPECT_THAT(List().Selection(), ElementsAre(2));
}

TEST_F(frmMainTest, FindNextAsksWhileNoTermIsHeld) {
    Add(*app.events, "Tea", 1);
    Add(*app.events, "More tea", 2);
    Open();
    machine.dialogs.inputs = {"tea"};
    window->Click(IDM_FINDNEXT);
    EXPECT_THAT(List().Selection(), ElementsAre(1));
    machine.dialogs.inputs = {"water"};
    window->Click(IDM_FIND);
    EXPECT_THAT(machine.dialogs.messages, ElementsAre("No event contains \"water\"."));
}

TEST_F(frmMainTest, TheListMenuNeedsASelectedRow) {
    Open();
    window->Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_THAT(window->menus, IsEmpty());
    Add(*app.events, "Tea", 1);
    window->Click(IDM_REFRESH);
    window->Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_THAT(window->menus, ElementsAre(IDR_MENU_LIST));
}

TEST_F(frmMainTest, TheCloseBoxHidesTheWindowAndTellsTheComponent) {
    Open();
    main->ShowWindow();
    window->Raise(0, Raised::CloseBox, kByEscape);
    EXPECT_TRUE(main->IsShown());
    machine.pump.waiting = [&] { EXPECT_FALSE(main->IsShown()); };
    window->CloseBox();
    EXPECT_EQ(1, machine.pump.processed);
    EXPECT_THAT(raised, ElementsAre("WindowClosed"));
    EXPECT_EQ(1U, app.openWindows.Count());
    main->ShowWindow();
    EXPECT_TRUE(main->IsShown());
    window->state = WindowState::Maximised;
    main->BringForward();
    EXPECT_EQ("Show activated", window->acts.back());
    EXPECT_EQ(WindowState::Normal, window->State());
}

struct SizeCase {
    const char* title;
    SettingValue width, height;
    WindowState state;
    WindowSize size;  // of a window of 800 by 600 on a screen of 1920 by 1080
};

class WindowSizeTest : public MainWindowFixture, public testing::WithParamInterface<SizeCase> {};

TEST_P(WindowSizeTest, IsRestored) {
    app.settings.StoreSetting("MainWindowWidth", GetParam().width);
    app.settings.StoreSetting("MainWindowHeight", GetParam().height);
    Open();
    EXPECT_EQ(GetParam().state, window->State());
    EXPECT_EQ(GetParam().size.width, window->Size().width);
    EXPECT_EQ(GetParam().size.height, window->Size().height);
}

INSTANTIATE_TEST_SUITE_P(
    Stored, WindowSizeTest,
    testing::Values(
        SizeCase{"Plain", std::int32_t{640}, std::int32_t{400}, WindowState::Normal, {640, 400}},
        SizeCase{"AsText", "640", "400", WindowState::Normal, {640, 400}},
        SizeCase{"NinetyPercent", std::int32_t{1728}, std::int32_t{972}, WindowState::Normal, {1728, 972}},
        SizeCase{"More", std::int32_t{1729}, std::int32_t{973}, WindowState::Maximised, {800, 600}},
        SizeCase{"Tall", std::int32_t{500}, std::int32_t{1070}, WindowState::Normal, {500, 1070}},
        SizeCase{"Wide", std::int32_t{1900}, std::int32_t{500}, WindowState::Normal, {1900, 500}},
        SizeCase{"Nonsense", "wide", std::int32_t{-5}, WindowState::Normal, {800, 600}}),
    [](const auto& test) { return test.param.title; });

TEST_F(frmMainTest, TheSizeIsStoredOnUnloadingAndAtTheEndOfTheSessionUnlessMinimised) {
    Open();
    window->state = WindowState::Minimised;
    window->Raise(0, Raised::SessionEnd);
    EXPECT_FALSE(app.settings.IsSettingPresent("MainWindowWidth"));
    window->state = WindowState::Maximised;  // and never shown
    window->Raise(0, Raised::SessionEnd);
    EXPECT_FALSE(app.settings.IsSettingPresent("MainWindowWidth"));

    window->state = WindowState::Normal;
    window->size = {700, 500};
    window->Raise(0, Raised::SessionEnd);
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Kaz.ini"), HasSubstr("MAINWINDOWWIDTH,700"));

    window->size = {710, 510};
    main->ShowWindow();
    main->Unload();
    EXPECT_EQ(0U, app.openWindows.Count());
    EXPECT_EQ(510, ToNumber(app.settings.sGet("MainWindowHeight")));
    EXPECT_FALSE(window->IsVisible());
    EXPECT_EQ(0, window->Interval(IDT_TimerRefresh));
    main.reset();
    EXPECT_EQ(nullptr, machine.windows.Newest(IDD_MAIN));
}

}  // namespace
}  // namespace kaz
