#include "FormTest.h"
#include "ui/main/frmMain.h"

namespace kaz {
namespace {

class frmMainCommandsTest : public FormTest {
protected:
    // Local "mine", "also mine" and "expired", and "Ann's" of another user, in the order of their days.
    void OpenOnFourRows() {
        Add(*app.events, "mine", 1);
        Add(*app.events, "also mine", 2);
        Add(*app.expired, "expired", -3).IDCode =
            "100001";  // as "also mine": files know nothing of each other
        ShareAsAnn({Of("Ann", OneOff("100000", "Ann's", kToday.PlusDays(3)))});
        app.events->SaveDB();
        app.expired->SaveDB();
        app.settings.StoreSetting("Networked", true);
        OpenMainAndTick();
        main->ShowWindow();
        Click(IDC_chkExpired);
        ASSERT_EQ("expired|mine|also mine|Ann's", Column());
        ASSERT_EQ("E|||S", Column(kTypeColumn));
        raised.clear();
    }
};

TEST_F(frmMainCommandsTest, AddedAndEditedEventsAreStoredAndSelected) {
    OpenOnFourRows();
    const auto typeAndSave = [this](const char* text) {
        InModal(IDD_EVENT, [this, text] {
            EXPECT_TRUE(window->ControlVisible(IDC_txtDesc));
            Type(IDC_txtDesc, Text(IDC_txtDesc) + text);
            Click(IDC_cmdSave);
        });
    };
    typeAndSave("typed");
    Click(IDM_ADD);
    EXPECT_EQ("expired|typed|mine|also mine|Ann's", Column());
    EXPECT_EQ("typed", Selected());
    EXPECT_THAT(raised, ElementsAre("Rescan"));

    typeAndSave(" too");
    Select({0, 2});  // the row with the focus counts
    stage->Open(*window, IDC_ListEvents);
    EXPECT_EQ("mine too", Selected());
    EXPECT_THAT(Saved(kEventFile), HasSubstr("mine%20too"));

    raised.clear();
    InModal(IDD_EVENT, [this] { Click(IDC_cmdAbort); });
    OnRow(0, IDM_EDIT);
    EXPECT_THAT(raised, IsEmpty());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(frmMainCommandsTest, EventsOfOthersAreRefusedAndNothingChanges) {
    OpenOnFourRows();
    const std::string before = Saved(kEventFile);
    for (const int command : {IDM_EDIT, IDM_SHAREWITH, IDM_PUSH})
        OnRow(3, command);
    EXPECT_THAT(Told(), ElementsAre("You can't edit a shared item belonging to someone else",
                                    "You can't edit a shared item belonging to someone else",
                                    "You can't push a shared item belonging to someone else"));
    OnRow(0, IDM_PUSH);  // an expired event is left alone
    EXPECT_EQ(before, Saved(kEventFile));
    Tick();

    OnRow(1, IDM_PUSH);
    EXPECT_EQ("---|0002|0002|0003", Column(kLeftColumn));
    EXPECT_EQ("mine", Selected());
}

TEST_F(frmMainCommandsTest, DeletingAsksOnceAndRefusesOnce) {
    OpenOnFourRows();
    const auto asked = [this] { return std::exchange(machine.dialogs.questions, {}); };
    Select({0, 2, 3});
    Click(IDM_DELETE);  // No
    EXPECT_EQ("expired|mine|also mine|Ann's", Column());
    EXPECT_THAT(raised, IsEmpty());

    // While the question is open, a new event changes the rows' places, and its alarm rings.
    machine.dialogs.meanwhile = [this] {
        clsEvent& event = Add(*app.events, "new", 0);
        event = WithAlarm(event, 9, 1);
        Click(IDM_REFRESH);
        machine.clock.AdvanceMinutes(1);
        Tick();
        EXPECT_THAT(Reminders("ALARM!"), ElementsAre("new"));
    };
    machine.dialogs.yesNo = {true};
    asked();
    Click(IDM_DELETE);
    machine.dialogs.meanwhile = {};
    EXPECT_EQ("new|mine|Ann's", Column());
    EXPECT_THAT(asked(), ElementsAre("Are you sure you want to delete the selected event(s)?\r\n3 events"));
    EXPECT_EQ(Dialogs::Default::No, machine.dialogs.defaultOfQuestion);
    EXPECT_EQ("mine", Selected());  // the neighbour
    EXPECT_THAT(Told(), ElementsAre("You can't delete events belonging to another user"));
    EXPECT_THAT(Saved("C:\\KAZ\\Expired.xml"), Not(HasSubstr("expired")));

    OnRow(1, IDM_DELETE);
    EXPECT_THAT(asked(), ElementsAre(EndsWith("\r\nmine")));
    EXPECT_EQ(Dialogs::Default::Yes, machine.dialogs.defaultOfQuestion);
    Select({});
    Click(IDM_DELETE);
    EXPECT_THAT(asked(), IsEmpty());

    // Many are one save.
    for (int i = 0; i < 50; ++i)
        Add(*app.events, "bulk", 1);
    Click(IDM_REFRESH);
    Click(IDM_SELECTALL);
    machine.dialogs.yesNo = {true};
    const int written = machine.files.written;
    Click(IDM_DELETE);
    EXPECT_EQ("Ann's", Column());
    EXPECT_LT(machine.files.written - written, 15);  // the log counts as well

    Click(IDM_UNDO);
    EXPECT_EQ(Column(), Selected() + "|Ann's");
    EXPECT_EQ(52U, List().Selection().size());
    if (!fakes) return;  // what a real menu says, it does not tell
    Fake().Raise(IDC_ListEvents, Raised::RightClick);
    EXPECT_EQ("&Undo deletion of 2 events\tCtrl+Z", Fake().commands[IDM_UNDO]);
    EXPECT_EQ("Re&do deletion of 52 events\tCtrl+Y", Fake().commands[IDM_REDO]);
    Click(IDM_REDO);
    Click(IDM_OPTIONS);
    EXPECT_EQ("Ann's", Column());
    EXPECT_EQ("(Re&do\tCtrl+Y)", Fake().commands[IDM_REDO]);
}

TEST_F(frmMainCommandsTest, SeveralRowsArePushedAndCopiedAndWhatDoesNotFitARowSaysWhy) {
    OpenOnFourRows();
    Select({0, 1, 2, 3});
    Click(IDM_PUSH);
    EXPECT_EQ("---|0002|0003|0003", Column(kLeftColumn));
    EXPECT_EQ(Column(), Selected());
    EXPECT_THAT(Told(), ElementsAre("You can't push a shared item belonging to someone else"));
    Select({1, 3});
    Click(IDM_COPY);
    if (!fakes) return;  // what a real menu and the clipboard say, it does not tell
    const std::string row = "0002\tFri\t03/17\t2023\tmine\tLayer 1\tSmith\t\t\t\t\r\n";
    EXPECT_THAT(Fake().clipboard, StartsWith(row));
    EXPECT_THAT(Fake().clipboard, HasSubstr("Ann's"));
    const struct {
        int row, command;
        const char* menu;
        const char* tool;
    } cases[] = {
        {0, IDM_EDIT, "&Edit\tEnter", "Edit selected event (Enter)"},
        {0, IDM_PUSH, "(&Push one day on (it has expired; Edit gives it another date)\tCtrl+U)", nullptr},
        {1, IDM_SKIP, "(S&kip to the next occurrence (it is shown once)\tCtrl+K)",
         "(Skip to the next occurrence (Ctrl+K): not now, it is shown once)"},
        {1, IDM_SHAREWITH, "&Share with ...\tCtrl+S", nullptr},
        {3, IDM_DELETE, "(De&lete (it belongs to somebody else)\tDel)", nullptr},
    };
    for (const auto& one : cases) {
        Select({one.row});
        Fake().Raise(IDC_ListEvents, Raised::RightClick);
        EXPECT_EQ(one.menu, Fake().commands[one.command]);
        if (one.tool) {
            EXPECT_EQ(one.tool, Fake().tools[one.command]);
        }
    }
}

TEST_F(frmMainCommandsTest, SharingGoesToAllSelectedEventsOfTheUser) {
    OpenOnFourRows();
    Window* const list = window;
    InModal(IDD_EVENT, [&] {
        EXPECT_FALSE(window->ControlVisible(IDC_txtDesc));
        EXPECT_FALSE(list->Enabled(0));
        for (const int tick : {IDC_chkShared, IDC_chkSpecificShare})
            Click(tick);
        window->SetSelection(IDC_lstUsers, {1});
        Click(IDC_cmdSave);
    });
    Click(IDM_SELECTALL);
    EXPECT_EQ(Column(), Selected());
    Select({0, 2, 3, 1});
    Click(IDM_SHAREWITH);
    EXPECT_EQ("E|*|*|S", Column(kTypeColumn));
    EXPECT_EQ("|Ann|Ann|", Column(kSharedWithColumn));
    EXPECT_EQ("mine", Selected());
}

TEST_F(frmMainCommandsTest, ADialogHoldsUpTheTickAndTheEndByTheTray) {
    Add(*app.events, "Rent", 3);
    OpenMainAndTick();
    main->ShowWindow();
    Window* const list = window;
    InModal(IDD_EVENT, [&] {
        stage->Click(*list, IDM_QUIT);
        if (fakes) {
            EXPECT_EQ(0, dynamic_cast<FakeWindow*>(list)->Interval(IDT_TimerRefresh));
        }
        Type(IDC_txtDesc, "Rent!");
        Click(IDC_cmdSave);
    });
    Click(IDM_EDIT);
    EXPECT_EQ("Rent!", Column());
    if (fakes) {  // it comes at once
        EXPECT_EQ(1, Fake().Interval(IDT_TimerRefresh));
    }
    main.reset();
    Click(IDM_QUIT);
    stage->Wait(100);
    EXPECT_EQ(nullptr, stage->Find(IDD_MAIN));
    EXPECT_THAT(Saved("C:\\KAZ\\Kaz.ini"), HasSubstr("MAINWINDOWWIDTH"));
    EXPECT_THAT(raised, Each("Rescan"));
}

TEST_F(frmMainCommandsTest, ButtonsAndMenusOpenWhatTheySay) {
    OpenMainAndTick();
    for (const auto& [command, dialog] : {std::pair{IDM_EDITLAYERS, IDD_LAYERS}, {IDM_ABOUT, IDD_ABOUT}}) {
        InModal(dialog, [this] { stage->CloseBox(*window); });
        Click(command);
    }
    for (const auto& [command, dialog] : {std::pair{IDM_TASKLIST, IDD_TASKS}, {IDM_MONTHVIEW, IDD_MONTH}}) {
        Click(command);
        EXPECT_TRUE(stage->Find(dialog)) << command;
    }
    EXPECT_EQ("March 2023", stage->Find(IDD_MONTH)->Text(IDC_lblDate));
    machine.dialogs.yesNo = {true};
    Click(IDM_LOG);
    EXPECT_THAT(machine.dialogs.questions, ElementsAre(HasSubstr("C:\\KAZ\\log.txt")));
    EXPECT_THAT(std::exchange(machine.shell.opened, {}), ElementsAre("C:\\KAZ\\Log_KAZ.txt"));
    machine.files.Put("C:\\KAZ\\log.txt", "");
    Click(IDM_LOG);
    Click(IDM_CHANGES);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("No event has been changed yet.")));
    Click(IDM_CHECKFORUPDATE);
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\KAZ\\log.txt", HasSubstr("example.org")));
    Click(IDM_EXIT);
    EXPECT_THAT(raised, ElementsAre("ShutDownKAZ"));
    EXPECT_TRUE(stage->Find(IDD_MAIN));  // only the host may end the program now
    if (!fakes) return;                  // real menus would wait for the user
    EXPECT_EQ(14U, Fake().toolbar.size());
    for (const int menu : {IDM_OPTIONS, IDM_HELPMENU})
        Click(menu);
    EXPECT_THAT(Fake().menus, ElementsAre(IDR_MENU_SETTINGS, IDR_MENU_HELP));
}

TEST_F(frmMainCommandsTest, ABackupIsMadeAndShownOnDemand) {
    OpenMainAndTick();
    machine.dialogs.yesNo = {false, true};
    Click(IDM_BACKUP);
    EXPECT_THAT(machine.dialogs.questions,
                ElementsAre("Backup complete. Your files were zipped to the AutoBackups folder in C:\\KAZ\r\n"
                            "Would you like to open this folder now?"));
    EXPECT_THAT(machine.shell.opened, IsEmpty());
    Click(IDM_BACKUP);
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\KAZ\\Autobackups"));
    machine.files.faults.FailAt(1, ErrorNumber::DiskFull);
    Click(IDM_BACKUP);
    EXPECT_THAT(Told(), Contains("Backup failed."));
}

TEST_F(frmMainCommandsTest, TheTrayTellsWhatIsDueAndShowsTheWindow) {
    if (!fakes) GTEST_SKIP() << "the shell does not tell what its tray shows";
    Add(*app.events, "today", 0);
    OpenMainAndTick();
    FakeWindow& tray = Fake();
    EXPECT_EQ("KAZ - 1 event due today", tray.trayTip);
    EXPECT_EQ(2U, tray.windowsBeforeTray) << "a shell that is busy must not keep the reminders back";
    machine.dialogs.yesNo = {true};
    Click(IDM_SELECTALL);
    Click(IDM_DELETE);
    EXPECT_EQ("KAZ - nothing due today", tray.trayTip);

    tray.SetState(WindowState::Minimised);
    tray.Raise(0, Raised::TrayMouse, 0x201);
    EXPECT_TRUE(main->IsShown());
    EXPECT_EQ(WindowState::Normal, tray.State());
    Logged();
    for (const int idle : {0x200, 0x202, 0x203, 0x205, 0x206})
        tray.Raise(0, Raised::TrayMouse, idle);
    EXPECT_EQ("", Logged());
    tray.Raise(0, Raised::TrayMouse, 0x20A);
    EXPECT_EQ("&H20A in 'mousemove' untrapped\n", Logged());
    tray.Raise(0, Raised::TrayMouse, 0x204);
    EXPECT_THAT(tray.menus, ElementsAre(IDR_MENU_TRAY));

    tray.trayRefuses = true;  // as while the shell is starting
    tray.Raise(0, Raised::TrayLost);
    EXPECT_THAT(Logged(), HasSubstr("ShowIconInTray"));
    tray.trayRefuses = false;
    tray.trayTip.reset();
    tray.Raise(0, Raised::TrayLost);
    EXPECT_TRUE(tray.trayTip);
}

}  // namespace
}  // namespace kaz
