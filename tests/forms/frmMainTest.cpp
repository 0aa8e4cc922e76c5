#include "ui/main/frmMain.h"

#include "FormTest.h"

namespace kaz {
namespace {

class frmMainTest : public FormTest {};

TEST_F(frmMainTest, ListsTheEventsOfTheChosenCategoryAndTheExpiredOnesWhileTicked) {
    Add(*app.events, "work", 1, 2);
    Add(*app.events, "home", 2, 3);
    Add(*app.events, "gone", 3).Deleted = true;
    Add(*app.events, "unset", 4, 0);
    ASSERT_TRUE(app.events->SaveDB());
    app.events->LoadDB(kEventFile);
    Add(*app.expired, "old", -3, 3);
    Add(*app.expired, "older", -400);
    Add(*app.expired, "removed", -1).Deleted = true;
    OpenMain();
    EXPECT_EQ("All Categories", Text(IDC_cmbCategories));
    EXPECT_EQ("0001|0002|0004", Column(kLeftColumn));
    EXPECT_EQ("0 up", stage->SortMark(*window, IDC_ListEvents));
    EXPECT_EQ(1, app.events->AllEvents().back().Layer());
    const struct {
        int category;
        const char *plain, *ticked, *types;
    } cases[] = {{20, "work|home|unset", "old|older|work|home|unset", "E|E|||"},
                 {3, "home", "old|home", "E|"},
                 {19, "", "", ""}};
    for (const auto& each : cases) {
        Choose(IDC_cmbCategories, each.category);
        EXPECT_EQ(each.plain, Column());
        Click(IDC_chkExpired);
        EXPECT_EQ(each.ticked, Column());
        EXPECT_EQ(each.types, Column(kTypeColumn));
        EXPECT_EQ(*each.ticked ? 1U : 0U, List().Selection().size());
        Click(IDC_chkExpired);
    }
}

TEST_F(frmMainTest, WhatAnotherProgramWroteIntoTheExpiredFileJoinsWhatIsNotSaved) {
    Add(*app.expired, "old", -3);
    ASSERT_TRUE(app.expired->SaveDB());
    app.expired->LoadDBIfChanged("C:\\KAZ\\Expired.xml");
    const std::string saved = Saved("C:\\KAZ\\Expired.xml");
    Add(*app.expired, "not saved yet", -2);
    OpenMain();
    Click(IDC_chkExpired);
    EXPECT_EQ("old|not saved yet", Column());
    machine.files.Put("C:\\KAZ\\Expired.xml", ReplaceAll(saved, "<Desc>old<", "<Desc>older<"));
    Click(IDM_REFRESH);
    EXPECT_EQ("older|not saved yet", Column());
}

TEST_F(frmMainTest, SharedEventsOfOthersAreBroughtUpToDateInANetworkOnly) {
    ShareAsAnn({Of("Ann", Daily("000001", "weekly", kToday.PlusDays(-1), 7)),
                Of("Ann", OneOff("000002", "past", kToday.PlusDays(-2))),
                Add(*app.shared, "of this user", 1)});
    OpenMain();
    EXPECT_EQ("", Column());

    app.settings.StoreSetting("Networked", true);
    Logged();
    Click(IDM_REFRESH);
    EXPECT_EQ("past|weekly", Column());
    EXPECT_EQ("---|0006", Column(kLeftColumn));
    EXPECT_EQ("E|S", Column(kTypeColumn));
    EXPECT_THAT(Logged(),
                AllOf(HasSubstr("Showing shared events\nLoading multiple databases from C:\\Share\n"),
                      HasSubstr("Finished displaying shared events\n")));
    ShareAsAnn({});
    Click(IDM_REFRESH);
    EXPECT_THAT(Logged(), HasSubstr("No events in shared databases\n"));
}

TEST_F(frmMainTest, RefillingKeepsThePlaceInTheListAndSortingTheEvents) {
    for (const char* name : {"c", "a", "d", "b"})
        Add(*app.events, name, app.events->RecordCount());
    OpenMain();
    EXPECT_EQ("c", Selected());
    Select({3});
    Click(IDM_REFRESH);
    EXPECT_EQ("b", Selected());
    Select({0, 1});
    stage->ClickHeader(*window, IDC_ListEvents, kEventColumn);
    EXPECT_EQ("d|c|b|a", Column());
    EXPECT_EQ("4 down", stage->SortMark(*window, IDC_ListEvents));
    EXPECT_EQ("c|a", Selected());
    EXPECT_EQ(3, List().Current());

    Select({3});
    Changing(*app.events)[1].Deleted = true;
    Click(IDM_REFRESH);
    EXPECT_EQ("d", Selected());
    if (!fakes) return;  // a real menu would wait for the user
    window->Report(IDC_ListEvents).ClearSelection();
    Fake().Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_THAT(Fake().menus, IsEmpty());
    Select({1});
    Fake().Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_THAT(Fake().menus, ElementsAre(IDR_MENU_LIST));
}

TEST_F(frmMainTest, FindStartsAtTheTopAndFindNextBehindTheSelectedRow) {
    for (const char* name : {"Tea with Ann", "Coffee", "tea with Bob"})
        Add(*app.events, name, app.events->RecordCount());
    OpenMain();
    machine.dialogs.inputs = {"TEA", "tea", "water", std::nullopt, ""};
    Click(IDM_FINDNEXT);  // asks while no term is held
    EXPECT_EQ("tea with Bob", Selected());
    EXPECT_EQ(2, List().Current());
    Click(IDM_FINDNEXT);  // there is no third: the selection stays
    EXPECT_EQ("tea with Bob", Selected());
    Select({1, 2});
    for (int search = 0; search < 4; ++search) {  // found, not found, cancelled, nothing typed
        Click(IDM_FIND);
        EXPECT_EQ("Tea with Ann", Selected());
    }
    EXPECT_THAT(Told(), ElementsAre("No further event contains \"TEA\".", "No event contains \"water\"."));
    EXPECT_THAT(machine.dialogs.questions,
                ElementsAre("Search|Enter search term|", "Search|Enter search term|TEA",
                            "Search|Enter search term|tea", "Search|Enter search term|water",
                            "Search|Enter search term|water"));
}

TEST_F(frmMainTest, TheSearchBoxNarrowsTheListAndEscapeWidensIt) {
    app.layers.Layer(2, "Garden");
    for (const char* name : {"Tea with Ann", "Coffee", "tea with Bob"})
        Add(*app.events, name, app.events->RecordCount());
    Add(*app.events, "Roses", 5, 2);
    OpenMain();
    main->ShowWindow();
    Click(IDM_SEARCH);
    Select({2});
    Type(IDC_txtSearch, "TEA");
    EXPECT_EQ("Tea with Ann|tea with Bob", Column());
    EXPECT_EQ("tea with Bob", Selected());
    stage->ClickHeader(*window, IDC_ListEvents, kEventColumn);
    EXPECT_EQ("tea with Bob", Selected());
    Click(IDM_REFRESH);
    Click(IDM_SELECTALL);
    EXPECT_EQ("tea with Bob|Tea with Ann", Selected());
    Type(IDC_txtSearch, "gard");
    EXPECT_EQ("Roses", Selected());
    Type(IDC_txtSearch, "water");
    EXPECT_EQ("", Column());
    stage->PressEscape(*window, IDC_txtSearch);
    EXPECT_EQ("tea with Bob|Tea with Ann|Roses|Coffee", Column());
    EXPECT_EQ("", Text(IDC_txtSearch));
    stage->PressEscape(*window, IDC_txtSearch);
    EXPECT_EQ(IDC_ListEvents, stage->Focus(*window));
}

TEST_F(frmMainTest, ColumnsSortingAndExpiredEventsAreKeptForTheNextRun) {
    Add(*app.events, "a", 1);
    Add(*app.events, "b", 2);
    Add(*app.expired, "old", -3);
    OpenMain();
    const std::vector<ColumnPlace> made = List().Columns();
    ASSERT_EQ(11U, made.size());
    std::vector<ColumnPlace> moved = made;
    std::swap(moved[0], moved[9]);
    moved[0].width = 72;
    List().PlaceColumns(moved);
    for (const int column : {IDM_COLUMN + kOwnerColumn, IDM_COLUMN + kDayColumn, IDM_COLUMN + kEventColumn})
        Click(column);
    moved[kOwnerColumn].shown = moved[kDayColumn].shown = false;
    EXPECT_EQ(moved, List().Columns());
    stage->ClickHeader(*window, IDC_ListEvents, kEventColumn);
    Click(IDC_chkExpired);
    app.openWindows.UnloadAll();
    main.reset();
    OpenMain();
    EXPECT_EQ(moved, List().Columns());
    EXPECT_EQ("4 down", stage->SortMark(*window, IDC_ListEvents));
    EXPECT_EQ("old|b|a", Column());
    Click(IDM_COLUMNSRESET);
    EXPECT_EQ(made, List().Columns());

    app.openWindows.UnloadAll();
    main.reset();
    app.settings.StoreSetting("ListColumns", "9:20 x 9:30 4:-5 77:1 0:56-");
    app.settings.StoreSetting("ListSort", "-7 down");
    OpenMain();
    EXPECT_EQ((ColumnPlace{9, 20, true}), List().Columns()[0]);
    EXPECT_EQ((ColumnPlace{0, 56, false}), List().Columns()[1]);
    EXPECT_EQ(11U, List().Columns().size());
    EXPECT_EQ("0 up", stage->SortMark(*window, IDC_ListEvents));
}

TEST_F(frmMainTest, TheStoredSizeIsRestoredOrTheWindowIsMaximised) {
    if (!fakes) GTEST_SKIP() << "the sizes are those of a screen of 1920 by 1080";
    const struct {
        SettingValue width, height;
        WindowState state;
        WindowSize size;  // of a window of 800 by 600
    } cases[] = {{"640", "400", WindowState::Normal, {640, 400}},
                 {std::int32_t{1728}, std::int32_t{972}, WindowState::Normal, {1728, 972}},
                 {std::int32_t{1729}, std::int32_t{973}, WindowState::Maximised, {800, 600}},
                 {std::int32_t{500}, std::int32_t{1070}, WindowState::Normal, {500, 1070}},
                 {std::int32_t{1900}, std::int32_t{500}, WindowState::Normal, {1900, 500}},
                 {"wide", std::int32_t{-5}, WindowState::Normal, {800, 600}}};
    for (const auto& [width, height, state, size] : cases) {
        app.settings.StoreSetting("MainWindowWidth", width);
        app.settings.StoreSetting("MainWindowHeight", height);
        OpenMain();
        EXPECT_EQ(state, window->State()) << size.width;
        EXPECT_EQ(size, window->Size()) << size.width;
        app.openWindows.UnloadAll();
        main.reset();
    }
}

TEST_F(frmMainTest, AnEmptyListSaysWhyTheFirstCloseWhereItGoesAndF1Helps) {
    OpenMain();
    EXPECT_THAT(Text(IDC_lblEvents), HasSubstr("Ctrl+N"));
    Add(*app.events, "Rent", 1);
    Click(IDM_REFRESH);
    EXPECT_EQ(Text(IDC_lblEvents), "Events");
    Type(IDC_txtSearch, "Bills");
    EXPECT_THAT(Text(IDC_lblEvents), HasSubstr("Esc in the box"));
    if (!fakes) return;
    machine.files.Put("C:\\KAZ\\KAZ.html", "");
    InModal(IDD_LAYERS, [&] {
        Fake().Raise(0, Raised::Help);
        Fake().CloseBox();
    });
    Click(IDM_EDITLAYERS);
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\KAZ\\KAZ.html"));
    TurnTo(IDD_MAIN);
    Tick();
    Fake().CloseBox();
    Fake().CloseBox();
    EXPECT_THAT(Fake().balloons, ElementsAre(HasSubstr("Quit")));
}

TEST_F(frmMainTest, TheCloseBoxHidesItAndItsSizeIsStoredAtItsEndUnlessMinimised) {
    OpenMain();
    for (const auto state : {WindowState::Minimised, WindowState::Maximised}) {
        window->SetState(state);
        stage->Tell(*window, Raised::SessionEnd);
        EXPECT_FALSE(app.settings.IsSettingPresent("MainWindowWidth"));
    }
    main->BringForward();
    EXPECT_EQ(WindowState::Normal, window->State());
    EXPECT_TRUE(main->IsShown());
    window->SetSize({700, 480});
    stage->Tell(*window, Raised::SessionEnd);
    EXPECT_THAT(Saved("C:\\KAZ\\Kaz.ini"), HasSubstr("MAINWINDOWWIDTH,700\r\n"));

    window->SetSize({710, 490});
    stage->CloseBox(*window);
    EXPECT_FALSE(main->IsShown());
    EXPECT_THAT(raised, ElementsAre("WindowClosed"));
    main->ShowWindow();
    main->Unload();
    EXPECT_EQ(0U, app.openWindows.Count());
    EXPECT_EQ(490, ToNumber(app.settings.sGet("MainWindowHeight")));
    EXPECT_FALSE(window->IsVisible());
    main.reset();
    EXPECT_EQ(nullptr, stage->Find(IDD_MAIN));
}

}  // namespace
}  // namespace kaz
