#include "MainWindowFixture.h"
#include "ui/main/MainDialogs.h"
#include "ui/main/frmMain.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A user at the editor; what is typed is the new description.
struct TypingEditor : EventEditor {
    explicit TypingEditor(std::function<bool(clsEvent&, EditMode)> typing) : user(std::move(typing)) {}
    bool Edit(clsEvent& event, EditMode mode) override { return user(event, mode); }
    std::function<bool(clsEvent&, EditMode)> user;
};

class frmMainCommandsTest : public MainWindowFixture {
protected:
    void OpenWithFakeDialogs() {
        const auto note = [this](const char* what) { return [this, what] { opened.emplace_back(what); }; };
        MainDialogs dialogs{[this] { return std::make_unique<TypingEditor>(user); },
                            note("options"),
                            note("categories"),
                            note("about"),
                            [](const std::string&) { return UnsavedAnswer::Cancel; },
                            note("tasks"),
                            [this](int month, int year) {
                                opened.push_back(std::to_string(month) + "/" + std::to_string(year));
                            }};
        auto form = std::make_shared<frmMain>(machine.windows.Create(IDD_MAIN), app, *this, dialogs);
        app.openWindows.Add(form);
        main = form;
        window = machine.windows.Newest(IDD_MAIN);
        form->OnRaised(0, Raised::Load, 0);
        window->Tick(IDT_TimerRefresh);
        raised.clear();
    }
    // Local "mine", "also mine" and "expired", and "Ann's" of another user, in the order of their days.
    void OpenOnFourRows() {
        Add(*app.events, "mine", 1);
        Add(*app.events, "also mine", 2);
        Add(*app.expired, "expired", -3).IDCode =
            "100001";  // as "also mine": files know nothing of each other
        clsDbXml anns(app.Storage());
        Add(anns, "Ann's", 3).Owner("Ann");
        ShareAsAnn(anns.AllEvents());
        app.events->SaveDB();
        app.expired->SaveDB();
        app.settings.StoreSetting("Networked", true);
        OpenWithFakeDialogs();
        window->Toggle(IDC_chkExpired);
        ASSERT_EQ("expired|mine|also mine|Ann's", Column(kEventColumn));
        ASSERT_EQ("E|||S", Column(kTypeColumn));
    }
    void Command(int row, int command) {
        List().UserSelects({row});
        window->Raise(command, Raised::Click);
    }

    std::function<bool(clsEvent&, EditMode)> user = [](clsEvent&, EditMode) { return false; };
    std::vector<std::string> opened;
};

TEST_F(frmMainCommandsTest, AddedAndEditedEventsAreStoredAndSelected) {
    OpenOnFourRows();
    user = [&](clsEvent& event, EditMode mode) {
        EXPECT_EQ(EditMode::Whole, mode);
        event.Desc(event.Desc() + " typed");
        event = OneOff(event.IDCode, event.Desc(), machine.clock.Today().PlusDays(9));
        event.Owner("Smith");
        return true;
    };
    window->Click(IDM_ADD);
    EXPECT_EQ("expired|mine|also mine|Ann's| typed", Column(kEventColumn));
    EXPECT_THAT(List().Selection(), ElementsAre(4));
    EXPECT_THAT(raised, ElementsAre("Rescan"));

    List().UserSelects({0, 1});  // the row with the focus counts
    window->Raise(IDC_ListEvents, Raised::DoubleClick);
    EXPECT_EQ("expired|also mine|Ann's| typed|mine typed", Column(kEventColumn));
    EXPECT_THAT(List().Selection(), ElementsAre(4));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Events.xml"), HasSubstr("mine%20typed"));

    user = [](clsEvent&, EditMode) { return false; };
    raised.clear();
    Command(0, IDM_EDIT);
    EXPECT_THAT(raised, IsEmpty());
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
}

TEST_F(frmMainCommandsTest, EventsOfOthersAreRefusedAndNothingChanges) {
    OpenOnFourRows();
    user = [](clsEvent&, EditMode) -> bool { throw std::logic_error("opened"); };
    const std::string before = machine.files.Text("C:\\KAZ\\Events.xml");
    for (const int command : {IDM_EDIT, IDM_SHAREWITH, IDM_PUSH})
        Command(3, command);
    EXPECT_THAT(machine.dialogs.messages,
                ElementsAre("You can't edit a shared item belonging to someone else",
                            "You can't edit a shared item belonging to someone else",
                            "You can't push a shared item belonging to someone else"));
    Command(0, IDM_PUSH);  // an expired event is left alone
    EXPECT_EQ(before, machine.files.Text("C:\\KAZ\\Events.xml"));
    EXPECT_GT(window->Interval(IDT_TimerRefresh), 0);

    Command(1, IDM_PUSH);
    EXPECT_EQ("---|0002|0002|0003", Column(kLeftColumn));
    EXPECT_EQ("mine", List().Cell(List().Selection().at(0), kEventColumn));
}

TEST_F(frmMainCommandsTest, DeletingAsksOnceAndRefusesOnce) {
    OpenOnFourRows();
    List().UserSelects({0, 2, 3});
    window->Click(IDM_DELETE);  // No
    EXPECT_EQ("expired|mine|also mine|Ann's", Column(kEventColumn));
    EXPECT_THAT(raised, IsEmpty());

    // While the question is open, a new event changes the rows' places.
    machine.dialogs.meanwhile = [&] {
        Add(*app.events, "new", 0);
        window->Click(IDM_REFRESH);
    };
    machine.dialogs.yesNo = {true};
    const std::string events = machine.files.Text("C:\\KAZ\\Events.xml");
    window->Click(IDM_DELETE);
    EXPECT_EQ("new|mine|Ann's", Column(kEventColumn));
    EXPECT_EQ("Are you sure you want to delete the selected event(s)?\r\n3 events",
              machine.dialogs.questions.back());
    EXPECT_EQ(Dialogs::Default::No, machine.dialogs.defaultOfQuestion);
    EXPECT_EQ("mine", List().Cell(List().Selection().at(0), kEventColumn));  // the neighbour
    EXPECT_THAT(machine.dialogs.messages, ElementsAre("You can't delete events belonging to another user"));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Expired.xml"), testing::Not(HasSubstr("expired")));

    machine.dialogs.meanwhile = {};
    List().UserSelects({1});
    window->Click(IDM_DELETE);
    EXPECT_THAT(machine.dialogs.questions.back(), testing::EndsWith("\r\nmine"));
    EXPECT_EQ(Dialogs::Default::Yes, machine.dialogs.defaultOfQuestion);
    machine.dialogs.yesNo = {true};
    List().UserSelects({});
    window->Click(IDM_DELETE);
    EXPECT_EQ(3U, machine.dialogs.questions.size());

    // Many are one save.
    for (int i = 0; i < 50; ++i)
        Add(*app.events, "bulk", 1);
    window->Click(IDM_REFRESH);
    window->Raise(IDM_SELECTALL, Raised::Click);
    machine.dialogs.yesNo = {true};
    const int written = machine.files.written;
    window->Click(IDM_DELETE);
    EXPECT_EQ("Ann's", Column(kEventColumn));
    EXPECT_LT(machine.files.written - written, 15);  // the log counts as well
}

TEST_F(frmMainCommandsTest, SharingGoesToAllSelectedEventsOfTheUser) {
    OpenOnFourRows();
    user = [&](clsEvent& event, EditMode mode) {
        EXPECT_EQ(EditMode::SharingOnly, mode);
        EXPECT_EQ(0, window->Interval(IDT_TimerRefresh));
        event.SharedEvent = event.ShareWithSpecific = true;
        event.ShareNames = "Ann\r\n";
        return true;
    };
    window->Raise(IDM_SELECTALL, Raised::Click);
    EXPECT_THAT(List().Selection(), ElementsAre(0, 1, 2, 3));
    List().UserSelects({0, 2, 3, 1});
    window->Click(IDM_SHAREWITH);
    EXPECT_EQ("E|*|*|S", Column(kTypeColumn));
    EXPECT_EQ("Ann|Ann|", Column(kSharedWithColumn));
    EXPECT_EQ("mine", List().Cell(List().Selection().at(0), kEventColumn));
    EXPECT_EQ(1, window->Interval(IDT_TimerRefresh));  // the tick that was held up comes at once
}

TEST_F(frmMainCommandsTest, AnAlarmRingsWhileTheDeleteQuestionIsOpen) {
    clsEvent& event = Add(*app.events, "ring", 0);
    event = WithAlarm(event, 9, 1);
    OpenWithFakeDialogs();
    machine.dialogs.meanwhile = [&] {
        machine.clock.Set(2023, 3, 15, 9, 1);
        window->Tick(IDT_TimerRefresh);
        EXPECT_FALSE(Reminders("ALARM!").empty());
    };
    window->Raise(IDM_SELECTALL, Raised::Click);
    machine.dialogs.yesNo = {true};
    window->Click(IDM_DELETE);
    EXPECT_EQ("", Column(kEventColumn));
}

TEST_F(frmMainCommandsTest, ButtonsAndMenusOpenWhatTheySay) {
    OpenWithFakeDialogs();
    ASSERT_EQ(12U, window->toolbar.size());
    for (const ToolButton& button : window->toolbar)
        if (button.command != IDM_ADD && button.command != IDM_DELETE) window->Click(button.command);
    window->Click(IDM_ABOUT);
    EXPECT_THAT(opened, ElementsAre("tasks", "3/2023", "categories", "about"));
    EXPECT_THAT(window->menus, ElementsAre(IDR_MENU_SETTINGS, IDR_MENU_HELP));
    EXPECT_THAT(raised, ElementsAre("ShutDownKAZ"));
    EXPECT_EQ(1U, app.openWindows.Count());  // only the host may end the program now
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(HasSubstr("C:\\KAZ\\log.txt")));
    machine.files.Put("C:\\KAZ\\log.txt", "");
    window->Click(IDM_LOG);
    window->Click(IDM_CHECKFORUPDATE);
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\KAZ\\log.txt", HasSubstr("example.org")));
}

TEST_F(frmMainCommandsTest, ABackupIsMadeAndShownOnDemand) {
    OpenWithFakeDialogs();
    window->Click(IDM_BACKUP);
    EXPECT_THAT(machine.dialogs.questions,
                ElementsAre("Backup complete. Your files were zipped to the AutoBackups folder in C:\\KAZ\r\n"
                            "Would you like to open this folder now?"));
    EXPECT_THAT(machine.shell.opened, IsEmpty());
    machine.dialogs.yesNo = {true};
    window->Click(IDM_BACKUP);
    EXPECT_THAT(machine.shell.opened, ElementsAre("C:\\KAZ\\Autobackups"));
    machine.files.faults.FailAt(1, ErrorNumber::DiskFull);
    window->Click(IDM_BACKUP);
    EXPECT_THAT(machine.dialogs.messages, Contains("Backup failed."));
}

TEST_F(frmMainCommandsTest, TheTrayShowsTheWindowAndQuitsTheProgram) {
    Add(*app.events, "today", 0);
    OpenWithFakeDialogs();
    EXPECT_EQ("KAZ - 1 event due today", window->trayTip);
    EXPECT_EQ(2U, window->windowsBeforeTray) << "a shell that is busy must not keep the reminders back";
    machine.dialogs.yesNo = {true};
    window->Raise(IDM_SELECTALL, Raised::Click);
    window->Click(IDM_DELETE);
    EXPECT_EQ("KAZ - nothing due today", window->trayTip);

    window->state = WindowState::Minimised;
    window->Raise(0, Raised::TrayMouse, 0x201);
    EXPECT_TRUE(main->IsShown());
    EXPECT_EQ(WindowState::Normal, window->State());
    Logged();
    for (const int idle : {0x200, 0x202, 0x203, 0x205, 0x206})
        window->Raise(0, Raised::TrayMouse, idle);
    EXPECT_EQ("", Logged());
    window->Raise(0, Raised::TrayMouse, 0x20A);
    EXPECT_EQ("&H20A in 'mousemove' untrapped\n", Logged());
    window->Raise(0, Raised::TrayMouse, 0x204);
    EXPECT_THAT(window->menus, ElementsAre(IDR_MENU_TRAY));

    window->trayRefuses = true;  // as while the shell is starting
    window->Raise(0, Raised::TrayLost);
    EXPECT_THAT(Logged(), HasSubstr("ShowIconInTray"));
    window->trayRefuses = false;
    window->trayTip.reset();
    window->Raise(0, Raised::TrayLost);
    EXPECT_TRUE(window->trayTip);

    main.reset();
    window->Click(IDM_QUIT);
    EXPECT_EQ(0U, app.openWindows.Count());
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\Kaz.ini"), HasSubstr("MAINWINDOWWIDTH"));
    EXPECT_THAT(raised, testing::Each(std::string("Rescan")));
}

}  // namespace
}  // namespace kaz
