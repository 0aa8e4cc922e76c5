#include "ui/print/PrintLists.h"

#include "platform/Locale.h"
#include "ui/print/PrintDocument.h"

namespace kaz {

PaperList MonthOnPaper(const MonthList& events, std::string note) {
    PaperList list{.title = events.Heading(),
                   .note = std::move(note),
                   .nothing = "There are no events in this month.",
                   .rows = {}};
    for (const MonthList::Line& line : events.Lines())
        list.rows.push_back(
            {line.dayName.empty() ? std::string() : line.dayName + " " + std::to_string(line.day),
             line.description});
    return list;
}

void PrintMonthList(Application& app, const MonthGrid& grid) {
    const MonthList events(grid, app.platform.locale.Data());
    const PaperList list = MonthOnPaper(events, PrintedToday(app));
    PrintDocument(app, {.document = "MonthView"},
                  [&](const Paper& paper) { return LayOutList(list, paper); });
}

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
