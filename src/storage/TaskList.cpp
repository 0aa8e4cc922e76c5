#include "storage/TaskList.h"

#include "base/RuntimeError.h"

#include <algorithm>

namespace kaz {

namespace {

void Join(std::vector<std::string>& tasks, const std::vector<std::string>& wanted) {
    std::vector<std::string> there = tasks;
    for (const std::string& task : wanted) {
        const auto found = std::find(there.begin(), there.end(), task);
        if (found == there.end())
            tasks.push_back(task);
        else
            there.erase(found);
    }
}

}  // namespace

bool TaskList::Refresh() {
    std::vector<std::string> tasks;
    try {
        const bool changed = file_.Changed();
        if (changed) tasks = file_.Load();
        wasRead_ = true;
        readFault_.reset();
        if (!changed) return false;
    } catch (...) {
        readFault_ = CurrentError();
        throw;
    }
    if (unsaved_) Join(tasks, tasks_);
    const bool others = tasks != tasks_;
    tasks_ = std::move(tasks);
    return others;
}

bool TaskList::IsDamaged() const {
    return readFault_ && readFault_->number == static_cast<int>(ErrorNumber::TypeMismatch);
}

void TaskList::Add(std::string task) {
    tasks_.push_back(std::move(task));
    unsaved_ = true;
}

void TaskList::Change(int position, std::string task) {
    tasks_.at(static_cast<std::size_t>(position)) = std::move(task);
    unsaved_ = true;
}

void TaskList::Delete(int position) {
    tasks_.erase(tasks_.begin() + position);
    unsaved_ = true;
}

void TaskList::Insert(int position, std::string task) {
    tasks_.insert(tasks_.begin() + position, std::move(task));
    unsaved_ = true;
}

void TaskList::AddMissing(const std::vector<std::string>& tasks) {
    Join(tasks_, tasks);
    unsaved_ = true;
}

void TaskList::Save() {
    try {
        // What somebody else has written meanwhile is not written over.
        Refresh();
        file_.Save(tasks_);
    } catch (...) {
        saveFault_ = CurrentError();
        throw;
    }
    unsaved_ = false;
    saveFault_.reset();
}

}  // namespace kaz
