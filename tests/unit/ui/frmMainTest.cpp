#include "ui/main/frmMain.h"

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
    EXPECT_EQ("All Categories", window->Text(IDC_cmbCategories));
    EXPECT_EQ(9U, List().Columns().size());
    EXPECT_THAT(List().Selection(), IsEmpty());
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

TEST_F(frmMainTest, WhatAnotherProgramWroteIntoTheExpiredFileJoinsWhatIsNotSaved) {
    Add(*app.expired, "old", -3);
    ASSERT_TRUE(app.expired->SaveDB());
    app.expired->LoadDBIfChanged("C:\\KAZ\\Expired.xml");
    const std::string saved = machine.files.Text("C:\\KAZ\\Expired.xml");
    Add(*app.expired, "not saved yet", -2);
    Open();
    window->Toggle(IDC_chkExpired);
    EXPECT_EQ("old|not saved yet", Column(kEventColumn));
    machine.files.Put("C:\\KAZ\\Expired.xml", ReplaceAll(saved, "<Desc>old<", "<Desc>older<"));
    window->Click(IDM_REFRESH);
    EXPECT_EQ("older|not saved yet", Column(kEventColumn));
}

TEST_F(frmMainTest, SharedEventsOfOthersAreBroughtUpToDateInANetworkOnly) {
    clsEvent weekly = Daily("000001", "weekly", machine.clock.Today().PlusDays(-1), 7);
    clsEvent past = OneOff("000002", "past", machine.clock.Today().PlusDays(-2));
    weekly.Owner("Ann");
    past.Owner("Ann");
    ShareAsAnn({weekly, past, Add(*app.shared, "of this user", 1)});
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
    EXPECT_THAT(Logged(), HasSubstr("No events in shared databases\n"));
}

TEST_F(frmMainTest, RefillingKeepsThePlaceInTheList) {
    for (int days = 1; days <= 4; ++days)
        Add(*app.events, std::string("event ") + std::to_string(days), days);
    Open();
    window->Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_THAT(window->menus, ElementsAre(IDR_MENU_LIST));
    List().UserSelects({3});
    window->Click(IDM_REFRESH);
    EXPECT_THAT(List().Selection(), ElementsAre(3));
    EXPECT_EQ(3, List().scrolledTo);

    app.events->AllEvents()[1].Deleted = true;
    window->Click(IDM_REFRESH);
    EXPECT_THAT(List().Selection(), ElementsAre(0));

    List().UserSelects({});
    window->Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_EQ(1U, window->menus.size());
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
}

TEST_F(frmMainTest, FindStartsAtTheTopAndFindNextBehindTheSelectedRow) {
    for (const char* name : {"Tea with Ann", "Coffee", "tea with Bob"})
        Add(*app.events, name, app.events->RecordCount());
    Open();
    machine.dialogs.inputs = {"TEA", "tea", "water"};
    window->Click(IDM_FINDNEXT);  // asks while no term is held
    EXPECT_THAT(List().Selection(), ElementsAre(2));
    EXPECT_EQ(2, List().scrolledTo);
    window->Click(IDM_FINDNEXT);  // there is no third: the selection stays
    EXPECT_THAT(List().Selection(), ElementsAre(2));
    List().UserSelects({1, 2});
    window->Click(IDM_FIND);
    EXPECT_THAT(List().Selection(), ElementsAre(0));
    window->Click(IDM_FIND);
    EXPECT_THAT(machine.dialogs.messages,
                ElementsAre("No further event contains \"TEA\".", "No event contains \"water\"."));

    window->Click(IDM_FIND);  // cancelled
    machine.dialogs.inputs = {""};
    window->Click(IDM_FIND);
    EXPECT_THAT(machine.dialogs.questions,
                ElementsAre("Search|Enter search term|", "Search|Enter search term|TEA",
                            "Search|Enter search term|tea", "Search|Enter search term|water",
                            "Search|Enter search term|water"));
    EXPECT_THAT(List().Selection(), ElementsAre(0));
}

TEST_F(frmMainTest, TheStoredSizeIsRestoredOrTheWindowIsMaximised) {
    const struct {
        SettingValue width, height;
        WindowState state;
        WindowSize size;  // of a window of 800 by 600 on a screen of 1920 by 1080
    } cases[] = {{"640", "400", WindowState::Normal, {640, 400}},
                 {std::int32_t{1728}, std::int32_t{972}, WindowState::Normal, {1728, 972}},
                 {std::int32_t{1729}, std::int32_t{973}, WindowState::Maximised, {800, 600}},
                 {std::int32_t{500}, std::int32_t{1070}, WindowState::Normal, {500, 1070}},
                 {std::int32_t{1900}, std::int32_t{500}, WindowState::Normal, {1900, 500}},
                 {"wide", std::int32_t{-5}, WindowState::Normal, {800, 600}}};
    for (const auto& [width, height, state, size] : cases) {
        app.settings.StoreSetting("MainWindowWidth", width);
        app.settings.StoreSetting("MainWindowHeight", height);
        Open();
        EXPECT_EQ(state, window->State()) << size.width;
        EXPECT_EQ(size.width, window->Size().width);
        EXPECT_EQ(size.height, window->Size().height);
        app.openWindows.UnloadAll();
        main.reset();
    }
}

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
