#include "ui/tasks/frmTasks.h"

#include "base/Text.h"
#include "commands/TaskStep.h"
#include "core/DataWatch.h"
#include "forms/WindowFactory.h"
#include "platform/Dialogs.h"
#include "ui/print/PrintLists.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr char kFormName[] = "frmTasks";
constexpr std::string_view kGone = "Somebody else has changed or deleted this task meanwhile. ";

// A list box shows a line break or a tab as a blot.
std::vector<std::string> Lines(std::vector<std::string> tasks) {
    for (std::string& task : tasks)
        std::replace_if(task.begin(), task.end(), IsControl, ' ');
    return tasks;
}

}  // namespace

frmTasks::frmTasks(std::unique_ptr<kaz::Window> window, Application& application)
    : Form(std::move(window), application.errors, kFormName),
      app_(application),
      folder_(application.DataPath()),
      list_(application.dataWatch->UnsavedTasks()) {
    if (!list_) list_ = std::make_shared<TaskList>(app_.UserTasks());
    app_.dataWatch->WatchTasks(list_, [this] { FillKeepingTask(); });
    On(0, Raised::Load, "Form_Load", &frmTasks::Form_Load);
    On(0, Raised::Activated, "Form_Activate", &frmTasks::Form_Activate);
    On(0, Raised::CloseBox, "Cmd_exit_Click", &frmTasks::Cmd_exit_Click);
    On(IDC_cmd_add, Raised::Click, "cmd_add_Click", &frmTasks::cmd_add_Click);
    On(IDC_cmd_change, Raised::Click, "cmd_change_Click", &frmTasks::cmd_change_Click);
    On(IDC_lst_tasks, Raised::DoubleClick, "lst_tasks_DblClick", &frmTasks::cmd_change_Click);
    On(IDC_cmd_delete, Raised::Click, "cmd_delete_Click", &frmTasks::cmd_delete_Click);
    On(IDC_cmd_printTasks, Raised::Click, "cmd_print_Click", &frmTasks::cmd_print_Click);
    On(IDC_cmd_undoTask, Raised::Click, "cmd_undo_Click", [this] { Turn(UndoHistory::Way::Back); });
    On(IDC_cmd_redoTask, Raised::Click, "cmd_redo_Click", [this] { Turn(UndoHistory::Way::Again); });
    On(IDC_Cmd_exit, Raised::Click, "Cmd_exit_Click", &frmTasks::Cmd_exit_Click);
}

void frmTasks::Form_Load() {
    try {
        list_->Refresh();
    } catch (...) {
        TellUnreadable();
    }
    Fill(0);
}

void frmTasks::ComeForward() {
    // The loading has told already, and the next change will.
    ErrorTrap trap(app_.log, "ComeForward", Name());
    trap([&] {
        FollowFolder();
        if (list_->Refresh()) Fill(lst_tasks.Selected());
    });
    window().Show(Activation::TakeFocus);
}

// The options may have chosen another data folder meanwhile.
void frmTasks::Form_Activate() {
    if (closed_ || folder_ == app_.DataPath()) return;
    FollowFolder();
    try {
        list_->Refresh();
    } catch (...) {
        TellUnreadable();
    }
    Fill(0);
}

void frmTasks::FollowFolder() {
    if (folder_ == app_.DataPath()) return;
    if (list_->Unsaved()) {
        // What the old folder does not take comes along into the new one.
        ErrorTrap trap(app_.log, "FollowFolder", Name());
        trap([&] { list_->Save(); });
    }
    folder_ = app_.DataPath();
    list_->MoveTo(app_.UserTasks());
}

void frmTasks::Form_Unload() {
    // The window can outlive its closing for as long as a handler runs.
    closed_ = true;
    if (list_->Unsaved() && !abandoned_) SaveTasks();
    // What could not be saved is kept, unless the user has done without it.
    app_.dataWatch->WatchTasks(abandoned_ ? nullptr : list_, {});
    window().Hide();
}

void frmTasks::SaveTasks() {
    try {
        list_->Save();
    } catch (...) {
        const ErrorInfo failure = CurrentError();
        app_.log.LogError(failure, "SaveTasks", Name());
        app_.platform.dialogs.Message(
            "The task list could not be saved: " + failure.description +
            ".\r\nYour changes stay in this window and are saved with the next one.");
    }
    app_.dataWatch->Tell();
}

void frmTasks::cmd_add_Click() {
    const auto task = AskForTask("Enter a task", {});
    if (!task || closed_) return;
    FollowFile();
    list_->Add(*task);
    const int last = static_cast<int>(list_->Tasks().size()) - 1;
    TaskStep::Record(app_, {last, {}, *task});
    SaveTasks();
    Fill(last);
}

void frmTasks::cmd_change_Click() {
    if (!TaskSelected()) return;
    const auto task =
        AskForTask("Change Task", list_->Tasks()[static_cast<std::size_t>(lst_tasks.Selected())]);
    if (!task || closed_) return;
    int selected = static_cast<int>(list_->Tasks().size());
    if (FollowFile()) {
        selected = lst_tasks.Selected();
        TaskStep::Record(app_, {selected, list_->Tasks()[static_cast<std::size_t>(selected)], *task});
        list_->Change(selected, *task);
    } else {
        app_.platform.dialogs.Message(std::string(kGone) + "Your text is added as a new task.");
        TaskStep::Record(app_, {selected, {}, *task});
        list_->Add(*task);
    }
    SaveTasks();
    Fill(selected);
}

void frmTasks::cmd_delete_Click() {
    if (!TaskSelected()) return;
    if (!FollowFile()) {
        app_.platform.dialogs.Message(std::string(kGone) + "The list shows what is there now.");
        return;
    }
    const int selected = lst_tasks.Selected();
    TaskStep::Record(app_, {selected, list_->Tasks()[static_cast<std::size_t>(selected)], {}});
    list_->Delete(selected);
    SaveTasks();
    Fill(selected);
}

void frmTasks::Turn(UndoHistory::Way way) {
    constexpr UndoPlace kTasks = UndoPlace::Tasks;
    const UndoOutcome outcome = app_.undo.Take(way, &kTasks);
    if (outcome.task >= 0) Fill(outcome.task);
    if (!outcome.told.empty()) app_.platform.dialogs.Message(outcome.told);
}

void frmTasks::cmd_print_Click() {
    FollowFile();
    PrintTaskList(app_, list_->Tasks());
}

void frmTasks::Cmd_exit_Click() {
    if (list_->Unsaved()) SaveTasks();
    if (list_->Unsaved() && !app_.platform.dialogs.AskYesNo("Close the task list without your last changes?"))
        return;
    abandoned_ = true;
    app_.openWindows.Unload(*this);
}

// The last task when there are not that many.
void frmTasks::Fill(int selected) {
    lst_tasks.Items(Lines(list_->Tasks()));
    lst_tasks.Select(std::min(selected, static_cast<int>(list_->Tasks().size()) - 1));
}

// After somebody else's tasks have joined the list.
void frmTasks::FillKeepingTask() {
    const std::string selected = lst_tasks.Text();
    const std::vector<std::string> lines = Lines(list_->Tasks());
    const auto found = std::find(lines.begin(), lines.end(), selected);
    Fill(found == lines.end() ? -1 : static_cast<int>(found - lines.begin()));
}

void frmTasks::TellUnreadable() {
    const ErrorInfo failure = CurrentError();
    app_.log.LogError(failure, "Form_Load", Name());
    app_.platform.dialogs.Message("The task list could not be read: " + failure.description + ".");
    app_.dataWatch->Tell();
}

bool frmTasks::TaskSelected() {
    if (lst_tasks.Selected() >= 0) return true;
    app_.platform.dialogs.Message("Please select a task first");
    return false;
}

// Takes over what somebody else has written meanwhile. False when the selected task is not among it any more.
bool frmTasks::FollowFile() {
    const int selected = lst_tasks.Selected();
    const std::string task = selected < 0 ? "" : list_->Tasks()[static_cast<std::size_t>(selected)];
    try {
        FollowFolder();
        if (!list_->Refresh()) return true;
    } catch (...) {
        return true;  // the saving that follows will tell
    }
    const auto& tasks = list_->Tasks();
    const auto found = std::find(tasks.begin(), tasks.end(), task);
    Fill(found == tasks.end() ? -1 : static_cast<int>(found - tasks.begin()));
    return selected < 0 || found != tasks.end();
}

// Nothing when the user gave up.
std::optional<std::string> frmTasks::AskForTask(const std::string& title, std::string text) {
    for (;;) {
        auto answer = app_.platform.dialogs.InputBox(title, "Enter a todo item:", text);
        if (!answer || answer->empty()) return std::nullopt;
        const std::string fault = TaskFile::FaultOf(*answer);
        if (fault.empty()) return answer;
        app_.platform.dialogs.Message(fault);
        text = std::move(*answer);
    }
}

void ShowTasks(Application& application) {
    if (const auto open = std::dynamic_pointer_cast<frmTasks>(application.openWindows.Find(kFormName))) {
        open->ComeForward();
        return;
    }
    const auto form = std::make_shared<frmTasks>(application.platform.windows.Create(IDD_TASKS), application);
    application.openWindows.Add(form);
    form->OnRaised(0, Raised::Load, 0);
    form->ComeForward();
}

}  // namespace kaz
