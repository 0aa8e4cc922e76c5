#include "ui/tasks/frmTasks.h"

#include "FormTest.h"
#include "base/CodePage.h"

namespace kaz {
namespace {

constexpr char kFile[] = "C:\\KAZ\\tasklist.xml";
constexpr char kPlainFile[] = "C:\\KAZ\\tasklist.dat";

std::string FileOf(const std::vector<std::string>& tasks) {
    std::string text = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n<KAZ2>\r\n\t<TASK>\r\n";
    for (const std::string& task : tasks)
        text.append("\t\t<DETAILS>").append(task).append("</DETAILS>\r\n");
    return text + "\t</TASK>\r\n</KAZ2>\r\n";
}

class frmTasksTest : public FormTest {
protected:
    void Open() {
        ShowTasks(app);
        TurnTo(IDD_TASKS);
    }
    std::vector<std::string> Shown() { return window->Items(IDC_lst_tasks); }
    std::string OnDisk() { return CodePage::OfSystem().Decode(Saved(kFile)); }
    std::string LastMessage() {
        return machine.dialogs.messages.empty() ? "" : machine.dialogs.messages.back();
    }
};

TEST_F(frmTasksTest, EachChangeIsShownAndSavedAtOnce) {
    Open();
    EXPECT_TRUE(window->IsVisible());
    for (const int button : {IDC_cmd_change, IDC_cmd_delete})
        Click(button);
    EXPECT_THAT(Told(), Each("Please select a task first"));
    machine.dialogs.inputs = {"Milk", "Café & <b>\u0081\t%41", "Bread", "", std::nullopt};
    for (int i = 0; i < 5; ++i)
        Click(IDC_cmd_add);
    EXPECT_EQ("Enter a task|Enter a todo item:|", machine.dialogs.questions.front());
    EXPECT_THAT(Shown(), ElementsAre("Milk", "Café & <b>\u0081 %41", "Bread"));
    EXPECT_EQ(2, window->Selected(IDC_lst_tasks));
    EXPECT_EQ(FileOf({"Milk", "Café & <b>\u0081\t%41", "Bread"}), OnDisk());

    Choose(IDC_lst_tasks, 1);
    machine.dialogs.inputs = {"two\r\nlines", "a</details>b", "Tea"};
    stage->Open(*window, IDC_lst_tasks);
    EXPECT_THAT(Told(), ElementsAre("A task must be a single line.", HasSubstr("\"</DETAILS>\"")));
    EXPECT_EQ("Change Task|Enter a todo item:|a</details>b", machine.dialogs.questions.back());
    EXPECT_EQ("Tea", Text(IDC_lst_tasks));
    EXPECT_EQ(FileOf({"Milk", "Tea", "Bread"}), OnDisk());
    Click(IDC_cmd_delete);
    EXPECT_EQ("Bread", Text(IDC_lst_tasks));
    for (int i = 0; i < 2; ++i)
        Click(IDC_cmd_delete);
    EXPECT_EQ(FileOf({}), OnDisk());
    for (int i = 0; i < 4; ++i)
        Click(IDC_cmd_undoTask);
    EXPECT_EQ(FileOf({"Milk", "Café & <b>\u0081\t%41", "Bread"}), OnDisk());
    EXPECT_EQ(1, window->Selected(IDC_lst_tasks));
    Click(IDC_cmd_redoTask);
    EXPECT_THAT(Shown(), ElementsAre("Milk", "Tea", "Bread"));

    window->Hide();
    ShowTasks(app);
    EXPECT_TRUE(window->IsVisible());
    stage->CloseBox(*window);
    app.openWindows.UnloadAll();
    EXPECT_EQ(nullptr, stage->Find(IDD_TASKS));
}

TEST_F(frmTasksTest, TheOldPlainFileIsReadUntilThereIsAnother) {
    machine.files.Put(kPlainFile, "Milk\r\n\r\nBread\nTea");
    Open();
    EXPECT_THAT(Shown(), ElementsAre("Milk", "", "Bread", "Tea"));
    EXPECT_EQ(0, window->Selected(IDC_lst_tasks));
    EXPECT_EQ(PathKind::Missing, machine.files.Kind(kFile));
    Click(IDC_cmd_delete);
    EXPECT_EQ(FileOf({"", "Bread", "Tea"}), OnDisk());
    machine.files.Put(kFile, "<task><details>a<DETAILS>b</Details>junk<DETAILS>open\r\n\t</TASK>");
    ShowTasks(app);
    EXPECT_THAT(Shown(), ElementsAre("ab", "open"));
    // What was not understood of somebody's own editing is kept beside.
    Click(IDC_cmd_delete);
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\tasklist.bak"), HasSubstr("junk"));
}

TEST_F(frmTasksTest, WhatOthersWriteMeanwhileIsNeitherOverwrittenNorMistaken) {
    machine.files.Put(kFile, FileOf({"Milk", "Bread"}));
    Open();
    machine.files.Put(kFile, FileOf({"Ann's", "Milk", "Bread"}));
    machine.dialogs.inputs = {"Mine"};
    Click(IDC_cmd_add);
    EXPECT_EQ(FileOf({"Ann's", "Milk", "Bread", "Mine"}), OnDisk());
    Choose(IDC_lst_tasks, 1);
    machine.files.Put(kFile, FileOf({"Bread", "Milk"}));
    Click(IDC_cmd_delete);  // the task that was chosen, wherever it is now
    EXPECT_EQ(FileOf({"Bread"}), OnDisk());
    for (const int button : {IDC_cmd_delete, IDC_cmd_change}) {
        machine.dialogs.messages.clear();
        Choose(IDC_lst_tasks, 0);
        machine.files.Put(kFile, FileOf({"Changed " + std::to_string(button)}));
        machine.dialogs.inputs = {"Typed"};
        Click(button);
        EXPECT_THAT(LastMessage(), HasSubstr("Somebody else"));
    }
    EXPECT_EQ(FileOf({"Changed " + std::to_string(IDC_cmd_change), "Typed"}), OnDisk());
}

// What the old folder did not take comes along.
TEST_F(frmTasksTest, TheListGoesOnInTheFolderThatTheOptionsHaveChosen) {
    for (const bool unsaved : {false, true}) {
        SCOPED_TRACE(unsaved);
        machine.files.Put(kFile, FileOf({"Milk"}));
        machine.files.Put("D:\\New\\tasklist.xml", FileOf({"Jam"}));
        app.settings.StoreSetting("DataPath", std::string("C:\\KAZ"));
        Open();
        if (unsaved) {
            machine.files.At(kFile).readOnly = true;
            machine.dialogs.inputs = {"Tea"};
            Click(IDC_cmd_add);
        }
        app.settings.StoreSetting("DataPath", std::string("D:\\New"));
        stage->Tell(*window, Raised::Activated);
        EXPECT_EQ("Jam", Shown().at(0));
        EXPECT_EQ(unsaved ? "Tea" : "Jam", Shown().back());
        machine.dialogs.inputs = {"Bread"};
        Click(IDC_cmd_add);
        EXPECT_EQ(FileOf(Shown()), Saved("D:\\New\\tasklist.xml"));
        EXPECT_EQ(FileOf({"Milk"}), OnDisk());
        machine.files.At(kFile).readOnly = false;
        app.openWindows.UnloadAll();
    }
}

TEST_F(frmTasksTest, ADamagedFileIsToldAndLeftAlone) {
    const std::string whole = FileOf({"Milk", "Bread"});
    std::string wide;
    for (const char c : whole)
        wide.append({c, '\0'});
    const std::string damaged[] = {std::string(whole.size(), '\0'), wide,
                                   whole.substr(0, whole.find("</DETAILS>")),
                                   whole.substr(0, whole.rfind("\t\t<DETAILS>")), ""};
    for (const std::string& text : damaged)
        for (const bool isRunning : {false, true}) {
            // What is empty at a start may be a new file of somebody's, where no backup has tasks.
            if (text.empty() && !isRunning) continue;
            SCOPED_TRACE(text + (isRunning ? ", running" : ", at the start"));
            machine.files.Put(kFile, isRunning ? whole : text);
            Open();
            machine.files.Put(kFile, text);
            EXPECT_EQ(nullptr, stage->Find(IDD_ERRORREPORT));
            EXPECT_EQ(isRunning ? 0U : 1U, machine.dialogs.messages.size());
            machine.dialogs.inputs = {"Tea"};
            Click(IDC_cmd_add);
            EXPECT_EQ(text, OnDisk());
            EXPECT_THAT(Shown(), Contains("Tea"));
            EXPECT_THAT(LastMessage(), HasSubstr("the file is damaged"));
            machine.files.Put(kFile, whole);
            Click(IDC_Cmd_exit);
            EXPECT_EQ(FileOf({"Milk", "Bread", "Tea"}), OnDisk());
            app.openWindows.UnloadAll();
            machine.dialogs.messages.clear();
        }
}

// Whichever operation fails, for once or from then on: nothing that was there or typed is lost.
TEST_F(frmTasksTest, AFailureLosesNothing) {
    for (const auto lasts : {FaultInjector::Lasts::Once, FaultInjector::Lasts::FromThenOn})
        for (int fault = 1, struck = true; struck; ++fault) {
            machine.files.Put(kFile, FileOf({"Milk"}));
            machine.files.faults.FailAt(fault, ErrorNumber::DiskFull, lasts);
            Open();
            machine.dialogs.inputs = {"Bread", "Tea"};
            Click(IDC_cmd_add);
            EXPECT_THAT(Shown(), Contains("Bread")) << fault;
            struck = machine.files.faults.Struck();
            if (machine.dialogs.messages.empty()) {
                EXPECT_EQ(FileOf({"Milk", "Bread"}), OnDisk()) << fault;
            }
            if (lasts == FaultInjector::Lasts::FromThenOn && struck) {
                EXPECT_EQ(FileOf({"Milk"}), OnDisk());
                Click(IDC_Cmd_exit);  // asks, and the user stays
                EXPECT_THAT(machine.dialogs.questions.back(), HasSubstr("without your last changes"));
            }
            machine.files.faults.FailAt(0);
            Click(IDC_cmd_add);
            EXPECT_EQ(FileOf({"Milk", "Bread", "Tea"}), OnDisk()) << fault;
            Click(IDC_Cmd_exit);
            app.openWindows.UnloadAll();
            machine.dialogs.messages.clear();
        }
}

TEST_F(frmTasksTest, PrintingTellsWhatGoesWrong) {
    machine.files.Put(kFile, FileOf({"Milk", "Bread"}));
    Open();
    machine.printer.cancelled = true;
    Click(IDC_cmd_printTasks);
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
    machine.printer.cancelled = false;
    for (bool* trouble : {&machine.printer.missing, &machine.printer.broken}) {
        *trouble = true;
        Click(IDC_cmd_printTasks);
        EXPECT_THAT(LastMessage(), HasSubstr("Nothing was printed. The"));
        *trouble = false;
    }
    Click(IDC_cmd_printTasks);
    EXPECT_EQ("Tasks", machine.printer.asked.back());
    ASSERT_EQ(1U, machine.printer.printed.size());
    std::string texts;
    for (const PaperText& text : machine.printer.printed[0].texts)
        texts.append(text.text).append("|");
    EXPECT_EQ("Tallyvane task list|Printed 03/15/2023|Milk|Bread|Page 1 of 1|", texts);
}

}  // namespace
}  // namespace kaz
