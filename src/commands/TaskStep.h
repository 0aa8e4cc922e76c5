#pragma once

#include "core/Application.h"
#include "storage/TaskList.h"
#include "support/UndoHistory.h"

#include <memory>
#include <optional>
#include <string>

namespace kaz {

// A task that was added (without `before`), changed, or deleted (without `after`).
struct ChangedTask {
    int position = 0;
    std::optional<std::string> before;
    std::optional<std::string> after;
};

// A command on tasks. A task that is no longer in the list, whoever has changed it, is left alone.
class TaskStep : public UndoStep {
public:
    static void Record(Application& app, ChangedTask change);

    TaskStep(Application& app, std::string name, ChangedTask change);

    UndoOutcome Turn() override;
    std::size_t Size() const override { return sizeof *this; }

private:
    bool Apply(TaskList& tasks);

    Application& app_;
    ChangedTask change_;  // that the next turn makes
};

}  // namespace kaz
