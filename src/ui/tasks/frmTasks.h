#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "resources/resource.h"
#include "storage/TaskList.h"

#include <memory>
#include <optional>
#include <string>

namespace kaz {

// The list of things to do, beside the dated events: short texts in the order of their entry. Every change is
// saved at once.
class frmTasks : public Form {
public:
    // The application outlives the form.
    frmTasks(std::unique_ptr<kaz::Window> window, Application& application);

    // Writes the list to its file. A failure is told to the user; the list stays as it is and is saved with
    // the next change or when the window is closed.
    void SaveTasks();
    // To the front, with what the file holds now.
    void ComeForward();
    void Form_Unload() override;

private:
    void Form_Load();
    void cmd_add_Click();
    void cmd_change_Click();
    void cmd_delete_Click();
    void cmd_print_Click();
    void Cmd_exit_Click();

    void Turn(UndoHistory::Way way);
    void Form_Activate();
    void FollowFolder();
    void Fill(int selected);
    void FillKeepingTask();
    void TellUnreadable();
    bool TaskSelected();
    bool FollowFile();
    std::optional<std::string> AskForTask(const std::string& title, std::string text);

    Application& app_;
    std::string folder_;
    std::shared_ptr<TaskList> list_;
    bool closed_ = false;
    bool abandoned_ = false;
    ListControl lst_tasks{window(), IDC_lst_tasks};
};

// Opens the window beside the others; one that is open already comes forward. Throws InternalError when it
// cannot be made.
void ShowTasks(Application& application);

}  // namespace kaz
