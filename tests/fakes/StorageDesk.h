#pragma once

#include "fakes/FakePlatform.h"
#include "storage/clsDbXml.h"

namespace kaz {

// What the databases work with, on a machine of fakes. The log is "C:\KAZ\log.txt".
struct StorageDesk {
    StorageDesk() { log.ApplicationFolder("C:\\KAZ"); }
    explicit StorageDesk(const std::string& owner) : StorageDesk() { settings.sSet("Owner", owner); }

    Stores Services() { return Services(machine.files); }
    Stores Services(FileSystem& files) { return {machine.Services(files), log, settings, layers}; }
    std::string Log() const { return machine.files.Text("C:\\KAZ\\log.txt"); }

    FakePlatform machine;
    cSharedLogging log{machine.files, machine.clock, machine.system, {"KAZ", "1.0"}};
    cSHAREDSettings settings{machine.files, machine.locale, machine.dialogs, log};
    clsLayers layers{settings, machine.locale};
};

}  // namespace kaz
