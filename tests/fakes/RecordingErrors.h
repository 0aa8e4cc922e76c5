#pragma once

#include "base/ErrorTrap.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Keeps what it is told as "number procedure module".
struct RecordingErrors : ErrorSink {
    std::vector<std::string> told;
    void Report(const ErrorInfo& error, std::string_view procedure,
                std::string_view module) noexcept override {
        told.push_back(std::to_string(error.number).append(" ").append(procedure).append(" ").append(module));
    }
};

}  // namespace kaz
