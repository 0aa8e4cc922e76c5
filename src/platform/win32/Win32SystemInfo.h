#pragma once

#include "platform/SystemInfo.h"

#include <windows.h>

namespace kaz {

class Win32SystemInfo : public SystemInfo {
public:
    explicit Win32SystemInfo(HINSTANCE module) : module_(module) {}
    std::string OperatingSystem() const override;
    std::string ModuleFolder() const override;
    std::string UserFolder() const override;
    std::string LocalFolder() const override;
    std::string TemporaryFolder() const override;
    std::optional<bool> StartsAtLogon(const std::string& folder) const override;
    void StartAtLogon(const std::string& folder, bool starts) override;

private:
    HINSTANCE module_;
};

}  // namespace kaz
