#pragma once

#include "core/FileStates.h"
#include "core/Rescues.h"
#include "storage/TaskList.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kaz {

class Application;

class clsDbXml;

// Whether what the user entered is on the disk. What is not is told in the bar, tried again, and at the end
// of the program kept in a rescue file.
class DataWatch {
public:
    // The application outlives it.
    explicit DataWatch(Application& application)
        : app_(application),
          states_(application),
          rescues_(application) {}

    // The tasks that the user works on; `saved` is called when another than the user has saved or read them.
    void WatchTasks(std::shared_ptr<TaskList> tasks, std::function<void()> saved);
    // Tasks without a window that are not saved yet; null when there are none.
    std::shared_ptr<TaskList> UnsavedTasks() const { return tasks_ && tasks_->Unsaved() ? tasks_ : nullptr; }
    // The tasks that the user works on; without a window, those of the file, which have yet to be read.
    std::shared_ptr<TaskList> Tasks() const;
    // Saves the tasks, shows them where the user works on them, and tells how it stands. What cannot be saved
    // is tried again.
    void SaveTasks(const std::shared_ptr<TaskList>& tasks);
    FileStates& States() { return states_; }

    bool IsAllSaved() const;
    // Whether the files hold it now, too. This looks at them.
    bool IsAllSeen() const;
    // Names what is not saved, or counts it.
    std::string Unsaved() const;
    // The whole of it: what, why and what KAZ does about it.
    std::string Sentence() const;
    // Tells how it stands now. Call after each command and on each tick.
    void Tell();
    // Saves what is not saved yet, and tells how it stands.
    void TryAgain();
    // Asks where to, and writes there what is not saved. False when the user
    // gave up, or was told of a failure.
    bool SaveCopy();
    // The user wants what is not saved now to be lost.
    void GiveUp() { givenUp_ = RescueFile::TextOf(Collect()); }

    // At the end of the program: keeps what is not on the disk, without a question.
    void Rescue();
    // At the start: takes over what the last end kept. `movedFrom` is where the data folder was before, if it
    // has moved.
    void TakeOver(const std::string& movedFrom);
    // Of a file that could not be read yet, the events of before that a rescue has.
    std::size_t Kept(const clsDbXml& database) const;

private:
    struct Fault {
        std::string file;
        ErrorInfo error;
    };
    Rescued Collect() const;
    std::optional<Fault> FirstFault() const;
    static std::string NamesOf(const Rescued& rescued);
    void Merge(const Rescued& rescued);
    void ReadTasksAgain();
    bool IsAllTaken() const { return keptEvents_.Empty() && keptExpired_.Empty(); }
    void TakeKept();
    void TakeKeptBeside();
    void TellTakenOver();

    Application& app_;
    FileStates states_;
    std::shared_ptr<TaskList> tasks_;
    std::function<void()> tasksSaved_;
    std::string givenUp_;
    Rescues rescues_;
    // What waits for its file to be read, and the folder of that.
    RescuedEvents keptEvents_;
    RescuedEvents keptExpired_;
    std::string keptFolder_;
    std::string keptBeside_;
    std::size_t changesTaken_ = 0;
    std::size_t eventsPutBack_ = 0;
};

}  // namespace kaz
