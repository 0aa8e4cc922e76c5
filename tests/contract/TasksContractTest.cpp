#include "DialogStage.h"
#include "ui/tasks/frmTasks.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;

TEST_F(DialogContract, TasksAreAddedChangedDeletedAndShown) {
    ShowTasks(app);
    Window* window = stage->Find(IDD_TASKS);
    ASSERT_NE(nullptr, window);
    EXPECT_TRUE(window->IsVisible());

    machine.dialogs.inputs = {"Milk", "Caf\xE9\tat 9 & <b>", "Bread", "Tea"};
    stage->Click(*window, IDC_cmd_add);
    stage->Command(*window, IDC_cmd_add);
    stage->Click(*window, IDC_cmd_add);
    EXPECT_THAT(window->Items(IDC_lst_tasks), ElementsAre("Milk", "Caf\xE9 at 9 & <b>", "Bread"));
    EXPECT_EQ(2, window->Selected(IDC_lst_tasks));
    window->Select(IDC_lst_tasks, 0);
    stage->Command(*window, IDC_cmd_change);
    EXPECT_EQ("Tea", window->Text(IDC_lst_tasks));
    stage->Command(*window, IDC_cmd_delete);
    EXPECT_THAT(window->Items(IDC_lst_tasks), ElementsAre("Caf\xE9 at 9 & <b>", "Bread"));
    EXPECT_EQ(0, window->Selected(IDC_lst_tasks));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\tasklist.xml"), testing::HasSubstr(">Caf\xE9\tat 9 & <b><"));

    window->Hide();
    ShowTasks(app);
    EXPECT_TRUE(window->IsVisible());
    stage->CloseBox(*window);
    app.openWindows.UnloadAll();
    EXPECT_EQ(nullptr, stage->Find(IDD_TASKS));
}

}  // namespace
}  // namespace kaz
