#pragma once

#include "../forms/Stage.h"
#include "platform/Platform.h"

#include <cstddef>
#include <map>
#include <string>

namespace kaz {

// Where the program soaks: fakes with a stage of fake windows, or the real machine with real ones.
class SoakMachine {
public:
    // The machine of this build.
    static std::unique_ptr<SoakMachine> Make();

    virtual ~SoakMachine() = default;
    virtual Platform Services() = 0;
    // An empty folder for the program's data.
    virtual std::string Folder() const = 0;
    virtual void PassAnHour() = 0;
    // How many rounds say something.
    virtual int Rounds() const = 0;
    // What the program holds of the machine at this moment, by name, and by how much that may grow.
    struct Count {
        std::size_t now, mayGrow;
    };
    virtual std::map<std::string, Count> Counts() = 0;

    std::unique_ptr<Stage> stage = Stage::Make();
};

}  // namespace kaz
