#pragma once

#include "core/RescueFile.h"

#include <functional>
#include <string>
#include <vector>

namespace kaz {

class Application;

// The rescue files: in the program's own folder or, where nothing can be written, in the local
// application-data folder, where programs of other folders may keep theirs as well.
class Rescues {
public:
    // The application outlives it.
    explicit Rescues(Application& application) : app_(application) {}

    // Hands over what earlier ends have kept for this data folder, or for the one from which it has moved.
    // The others wait for the start in theirs.
    void Read(const std::string& movedFrom, const std::function<void(const Rescued&)>& take);
    // Puts it in the place of those that were read, and returns its file; "" when no folder takes it.
    std::string Write(Rescued rescued);
    // Once what they held is on the disk.
    void Delete();
    // They stay as they are.
    void Leave() { files_.clear(); }

private:
    std::vector<std::string> Folders() const;
    std::string NameIn(const std::string& folder) const;
    bool IsOurs(const Rescued& rescued, const std::string& file, const std::string& movedFrom) const;
    bool IsSame(const std::string& folder, const std::string& other) const;

    Application& app_;
    std::vector<std::string> files_;  // that were read or written, and hold what is not all on the disk yet
};

}  // namespace kaz
