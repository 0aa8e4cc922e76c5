#pragma once

#include "platform/SystemInfo.h"

namespace kaz {

class PosixSystemInfo : public SystemInfo {
public:
    std::string OperatingSystem() const override;
    // The folder of the running program.
    std::string ModuleFolder() const override;
    std::string UserFolder() const override;
    std::string LocalFolder() const override { return UserFolder(); }
    std::string TemporaryFolder() const override;
    std::optional<bool> StartsAtLogon(const std::string&) const override { return std::nullopt; }
    void StartAtLogon(const std::string&, bool) override {}
};

}  // namespace kaz
