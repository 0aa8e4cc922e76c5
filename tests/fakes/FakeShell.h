#pragma once

#include "base/RuntimeError.h"
#include "platform/Shell.h"

#include <optional>
#include <vector>

namespace kaz {

class FakeShell : public Shell {
public:
    void Open(const std::string& target) override {
        if (refusal) throw RuntimeError(*refusal);
        opened.push_back(target);
    }
    void OpenBehind(const std::string& target) override {
        Open(target);
        openedBehind.push_back(target);
    }

    std::vector<std::string> opened;
    std::vector<std::string> openedBehind;  // which are among them
    std::optional<ErrorNumber> refusal;
};

}  // namespace kaz
