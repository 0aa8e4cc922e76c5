#include "commands/TaskStep.h"

#include "base/Text.h"
#include "core/DataWatch.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr std::size_t kLongestTask = 60;

std::string Quoted(const std::string& task) { return "\"" + Beginning(OneLine(task), kLongestTask) + "\""; }

// The task's place, first looked for where it was; nothing when it is nowhere.
std::optional<int> Find(const std::vector<std::string>& tasks, const std::string& task, int position) {
    const auto at = static_cast<std::size_t>(position);
    if (at < tasks.size() && tasks[at] == task) return position;
    const auto found = std::find(tasks.begin(), tasks.end(), task);
    return found == tasks.end() ? std::nullopt : std::optional(static_cast<int>(found - tasks.begin()));
}

}  // namespace

void TaskStep::Record(Application& app, ChangedTask change) {
    if (change.before == change.after) return;
    const std::string what = !change.before ? "addition" : !change.after ? "deletion" : "change";
    std::string name = what + " of the task " + Quoted(change.after ? *change.after : *change.before);
    std::swap(change.before, change.after);
    app.undo.Add(std::make_unique<TaskStep>(app, std::move(name), std::move(change)));
}

TaskStep::TaskStep(Application& app, std::string name, ChangedTask change)
    : UndoStep(UndoPlace::Tasks, std::move(name)),
      app_(app),
      change_(std::move(change)) {}

UndoOutcome TaskStep::Turn() {
    const std::shared_ptr<TaskList> tasks = app_.dataWatch->Tasks();
    UndoOutcome outcome;
    try {
        tasks->Refresh();
    } catch (...) {
        app_.log.Report(CurrentError(), "Turn", "TaskStep");  // the saving that follows tells
    }
    outcome.changed = Apply(*tasks);
    if (!outcome.changed) {
        outcome.told = "The task " + Quoted(*change_.before) +
                       " has been changed or deleted since then. The list stays as it is.";
        return outcome;
    }
    outcome.task = change_.position;
    std::swap(change_.before, change_.after);
    app_.dataWatch->SaveTasks(tasks);
    return outcome;
}

bool TaskStep::Apply(TaskList& tasks) {
    if (!change_.before) {
        change_.position = std::min(change_.position, static_cast<int>(tasks.Tasks().size()));
        tasks.Insert(change_.position, *change_.after);
        return true;
    }
    const auto place = Find(tasks.Tasks(), *change_.before, change_.position);
    if (!place) return false;
    change_.position = *place;
    if (change_.after)
        tasks.Change(*place, *change_.after);
    else
        tasks.Delete(*place);
    return true;
}

}  // namespace kaz
