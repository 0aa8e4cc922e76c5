#include "DialogStage.h"
#include "core/MainWindow.h"
#include "fakes/Sample.h"
#include "resources/resource.h"
#include "ui/FormFactory.h"
#include "ui/list/EventRows.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FormContract : public DialogContract, public MainWindowEvents {
protected:
    FormContract() {
        app.settings.StoreSetting("Owner", std::string("Smith"));
        app.layers.LoadLayers();
        app.events = std::make_unique<clsDbXml>(app.Storage());
        app.expired = std::make_unique<clsDbXml>(app.Storage());
        app.events->LoadDB("C:\\KAZ\\Events.xml");
        app.expired->LoadDB("C:\\KAZ\\Expired.xml");
    }
    clsEvent& Add(const std::string& description, int days, int category = 1) {
        clsEvent event = OneOff(std::to_string(100000 + app.events->RecordCount()), description,
                                machine.clock.Today().PlusDays(days));
        event.Owner("Smith");
        event.Layer(static_cast<std::int16_t>(category));
        return app.events->AllEvents().emplace_back(event);
    }
    void Open() {
        main = MakeMainWindow(app, *this);
        window = stage->Find(IDD_MAIN);
    }
    std::vector<std::string> Shown(int column = kEventColumn) {
        return stage->Column(*window, IDC_ListEvents, column);
    }

    void fMain_ShutDownKAZ() override {}
    void fMain_Rescan() override {}
    void fMain_WindowClosed() override { ++windowClosed; }

    std::shared_ptr<MainWindow> main;
    Window* window = nullptr;
    int windowClosed = 0;
};

TEST_F(FormContract, TheMainListIsFilteredSortedAndSearched) {
    Add("Dentist", 12, 2);
    Add("Rent\r\nand water", 3);
    Add("Caf\xE9", 1);
    Open();
    main->ShowWindow();
    EXPECT_TRUE(window->IsVisible());
    EXPECT_THAT(Shown(), ElementsAre("Caf\xE9", "Rent  and water", "Dentist"));
    EXPECT_THAT(Shown(kLeftColumn), ElementsAre("0001", "0003", "0012"));
    EXPECT_EQ("0 up", stage->SortMark(*window, IDC_ListEvents));

    ReportList& list = window->Report(IDC_ListEvents);
    EXPECT_THAT(list.Selection(), ElementsAre(0));
    stage->ClickHeader(*window, IDC_ListEvents, kEventColumn);
    EXPECT_THAT(Shown(), ElementsAre("Rent  and water", "Dentist", "Caf\xE9"));
    EXPECT_EQ("4 down", stage->SortMark(*window, IDC_ListEvents));
    EXPECT_THAT(list.Selection(), ElementsAre(2));

    machine.dialogs.inputs = {"dent"};
    stage->Command(*window, IDM_FIND);
    EXPECT_THAT(list.Selection(), ElementsAre(1));
    EXPECT_EQ(1, list.Current());
    stage->Command(*window, IDM_FINDNEXT);
    EXPECT_EQ(1U, machine.dialogs.messages.size());
    EXPECT_THAT(list.Selection(), ElementsAre(1));

    stage->Choose(*window, IDC_cmbCategories, 2);
    EXPECT_THAT(Shown(), ElementsAre("Dentist"));
    EXPECT_THAT(list.Selection(), ElementsAre(0));
    stage->Choose(*window, IDC_cmbCategories, 5);
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(FormContract, CommandsWorkOnTheSelectedRowsAndTheTrayQuits) {
    Add("Dentist", 12);
    Add("Rent", 3);
    Add("Tea", 1);
    Open();
    main->ShowWindow();
    stage->SelectRows(*window, IDC_ListEvents, {1});
    stage->Command(*window, IDM_PUSH);
    EXPECT_THAT(Shown(kLeftColumn), ElementsAre("0001", "0004", "0012"));
    stage->OnModal(IDD_EVENT, [this](Window& editor) {
        EXPECT_EQ("Rent", editor.Text(IDC_txtDesc));
        EXPECT_FALSE(window->Enabled(0));
        stage->Command(*window, IDM_QUIT);  // the tray's menu is there, but the editor comes first
        stage->Type(editor, IDC_txtDesc, "Rent!");
        stage->Click(editor, IDC_cmdSave);
    });
    stage->Command(*window, IDM_EDIT);
    EXPECT_THAT(Shown(), testing::Contains("Rent!"));

    stage->Command(*window, IDM_SELECTALL);
    machine.dialogs.yesNo = {true};
    stage->Command(*window, IDM_DELETE);
    EXPECT_THAT(Shown(), IsEmpty());
    main.reset();
    stage->Command(*window, IDM_QUIT);
    stage->Wait(100);
    EXPECT_EQ(nullptr, stage->Find(IDD_MAIN));
}

TEST_F(FormContract, TheCloseBoxHidesTheMainWindowAndItComesBack) {
    Open();
    main->ShowWindow();
    window->SetSize({700, 480});
    stage->CloseBox(*window);
    EXPECT_FALSE(window->IsVisible());
    EXPECT_EQ(1, windowClosed);
    main->ShowWindow();
    window->SetState(WindowState::Minimised);
    main->BringForward();
    EXPECT_EQ(WindowState::Normal, window->State());
    EXPECT_TRUE(main->IsShown());

    main->Unload();
    main.reset();
    EXPECT_EQ(nullptr, stage->Find(IDD_MAIN));
    EXPECT_EQ(700, ToNumber(app.settings.sGet("MainWindowWidth")));
    EXPECT_EQ(480, ToNumber(app.settings.sGet("MainWindowHeight")));
}

TEST_F(FormContract, TheFirstTickBringsTheReminderWhichSleepsAndIsClosed) {
    Add("Dentist", 0);
    Add("Rent", 0);
    Open();
    EXPECT_EQ(nullptr, stage->Find(IDD_REMINDER));
    stage->Wait(100);
    Window* reminder = stage->Find(IDD_REMINDER);
    ASSERT_NE(nullptr, reminder);
    EXPECT_EQ("TODAY!", reminder->Text(0));
    EXPECT_EQ("TODAY!", reminder->Text(IDC_lblHeading));
    EXPECT_THAT(reminder->Items(IDC_lstReminders), ElementsAre("Rent", "Dentist"));
    EXPECT_FALSE(reminder->IsVisible());
    stage->Wait(2300);
    EXPECT_TRUE(reminder->IsVisible());

    stage->Type(*reminder, IDC_txtSleep, "5");
    stage->Click(*reminder, IDC_cmdRemindMe);
    EXPECT_FALSE(reminder->IsVisible());
    reminder->Show(Activation::KeepFocus);
    stage->Click(*reminder, IDC_cmdContinue);
    main->Unload();
    EXPECT_EQ(nullptr, stage->Find(IDD_REMINDER));
}

}  // namespace
}  // namespace kaz
