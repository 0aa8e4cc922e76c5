#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kaz {

class Application;
class clsDbXml;
class clsEvent;
class TaskList;

// What became of the files: told in the bar, with what the user can do about it.
class FileStates {
public:
    // The application outlives it.
    explicit FileStates(Application& application) : app_(application) {}

    // What happens when a reload has made events disappear.
    void WatchGone();
    // Tells how it stands with the file now.
    void Tell(clsDbXml& database);
    // The same for the tasks that the user works on, if any; `changed` is called when they were read anew.
    void Tell(const std::shared_ptr<TaskList>& tasks, const std::function<void()>& changed);
    // Tells of a settings file that was damaged while the program ran.
    void TellDamagedSettings();

private:
    void TellGone(clsDbXml& database, const std::vector<clsEvent>& gone);
    // A damaged file, and what can take its place.
    struct Damage {
        std::string file;
        std::string one;                          // of what it holds
        std::size_t listed;                       // what the list has of it; 0 when it was never read
        std::size_t kept;                         // what a rescue has of it
        std::function<void(bool isThere)> saved;  // a copy is in its place, or nothing as yet
    };
    void Tell(const Damage& damage);
    void Restore(const Damage& damage, const std::string& archive);
    void OpenFolder(const std::string& file) const;

    Application& app_;
};

}  // namespace kaz
