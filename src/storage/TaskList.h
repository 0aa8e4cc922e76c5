#pragma once

#include "base/ErrorTrap.h"
#include "storage/TaskFile.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

// The tasks of the user who works on them, beside others who may change the same file. Positions count
// from 0.
class TaskList {
public:
    explicit TaskList(TaskFile file) : file_(std::move(file)) {}

    // Goes on with another file; what is not saved yet comes along. The next Refresh reads it.
    void MoveTo(TaskFile file) {
        file_ = std::move(file);
        if (!unsaved_) tasks_.clear();
        wasRead_ = false;
        readFault_.reset();
    }

    const std::vector<std::string>& Tasks() const { return tasks_; }
    // Whether something of it is not on the disk yet.
    bool Unsaved() const { return unsaved_; }

    // Whether the list has what the file held when it was last whole.
    bool WasRead() const { return wasRead_; }
    // Whether the last look found a damaged file.
    bool IsDamaged() const;

    // Takes over what somebody else has written, if anybody has; true when that changed the list. Tasks of
    // this list that could not be saved stay in it. Throws as TaskFile::Load does.
    bool Refresh();

    void Add(std::string task);
    void Change(int position, std::string task);
    void Delete(int position);
    // Before the task at the position, or at the end when there are not more.
    void Insert(int position, std::string task);
    // Those of the tasks that the list does not have.
    void AddMissing(const std::vector<std::string>& tasks);
    // Makes the file anew, of this list, with the next Save.
    void TakePlace() { unsaved_ = true; }
    // Throws as TaskFile does; everything stays in the list then, and the next call tries again.
    void Save();
    // Why the last save failed; nothing after one that did not.
    const std::optional<ErrorInfo>& SaveFault() const { return saveFault_; }

private:
    TaskFile file_;
    std::vector<std::string> tasks_;
    bool unsaved_ = false;
    bool wasRead_ = false;
    std::optional<ErrorInfo> readFault_;
    std::optional<ErrorInfo> saveFault_;
};

}  // namespace kaz
