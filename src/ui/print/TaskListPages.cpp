#include "ui/print/TaskListPages.h"

#include "ui/print/PrintDocument.h"

namespace kaz {

PaperList TasksOnPaper(const std::vector<std::string>& tasks, std::string note) {
    PaperList list{.title = "Tallyvane task list",
                   .note = std::move(note),
                   .nothing = "There are no tasks.",
                   .boxesToTick = true,
                   .rows = {}};
    for (const std::string& task : tasks)
        list.rows.push_back({{}, task});
    return list;
}

void PrintTaskList(Application& app, const std::vector<std::string>& tasks) {
    const PaperList list = TasksOnPaper(tasks, PrintedToday(app));
    PrintDocument(app, {.document = "Tasks"}, [&](const Paper& paper) { return LayOutList(list, paper); });
}

}  // namespace kaz
