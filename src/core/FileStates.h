#pragma once

#include <string>
#include <vector>

namespace kaz {

class Application;
class clsDbXml;
class clsEvent;

// What became of the event files: told in the bar, with what the user can do about it.
class FileStates {
public:
    // The application outlives it.
    explicit FileStates(Application& application) : app_(application) {}

    // What happens when a reload has made events disappear.
    void WatchGone();
    // Tells how it stands with the file now.
    void Tell(clsDbXml& database);

    // Tells of a settings file that was damaged while the program ran.
    void TellDamagedSettings();

private:
    void TellGone(clsDbXml& database, const std::vector<clsEvent>& gone);
    void TellDamaged(clsDbXml& database, const std::string& key);
    void Restore(clsDbXml& database, const std::string& archive);
    void OpenFolder(const std::string& file) const;

    Application& app_;
};

}  // namespace kaz
