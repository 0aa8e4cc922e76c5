#pragma once

#include "platform/SystemInfo.h"

namespace kaz {

class FakeSystemInfo : public SystemInfo {
public:
    std::string OperatingSystem() const override { return "Test System 1.0"; }
    std::string ModuleFolder() const override { return moduleFolder; }
    std::string UserFolder() const override { return userFolder; }
    std::string LocalFolder() const override { return localFolder; }
    std::string TemporaryFolder() const override { return temporaryFolder; }
    std::optional<bool> StartsAtLogon(const std::string&) const override { return startsAtLogon; }
    void StartAtLogon(const std::string& folder, bool starts) override {
        startsAtLogon = starts;
        startedFolder = folder;
    }

    std::string moduleFolder = "C:\\KAZ";
    std::string userFolder = "C:\\KAZ";
    std::string localFolder = "C:\\Local";
    std::string temporaryFolder = "C:\\Temp";
    std::optional<bool> startsAtLogon = false;
    std::string startedFolder;  // the last one that was asked for
};

}  // namespace kaz
