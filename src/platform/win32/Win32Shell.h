#pragma once

#include "platform/Shell.h"

namespace kaz {

class Win32Shell : public Shell {
public:
    void Open(const std::string& target) override;
    void OpenBehind(const std::string& target) override;
};

}  // namespace kaz
