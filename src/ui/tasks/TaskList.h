#pragma once

#include "ui/tasks/TaskFile.h"

#include <string>
#include <vector>

namespace kaz {

// The tasks of the user who works on them, beside others who may change the same file. Positions count
// from 0.
class TaskList {
public:
    explicit TaskList(TaskFile file) : file_(std::move(file)) {}

    const std::vector<std::string>& Tasks() const { return tasks_; }
    // Whether something of it is not on the disk yet.
    bool Unsaved() const { return unsaved_; }

    // Takes over what somebody else has written, if anybody has; true when that changed the list. Tasks of
    // this list that could not be saved stay in it. Throws as TaskFile::Load does.
    bool Refresh();

    void Add(std::string task);
    void Change(int position, std::string task);
    void Delete(int position);
    // Throws as TaskFile does; everything stays in the list then, and the next call tries again.
    void Save();

private:
    TaskFile file_;
    std::vector<std::string> tasks_;
    bool unsaved_ = false;
};

}  // namespace kaz
