#pragma once

#include "base/ErrorTrap.h"
#include "support/cSharedLogging.h"

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// Hands errors to the log many at a time. A damaged file can have several in each of its thousands of
// records, and opening the log for every line would take longer than reading the file. The lines are those of
// the log itself.
class ErrorBatch : public ErrorSink {
public:
    explicit ErrorBatch(cSharedLogging& log) : log_(log) {}
    ~ErrorBatch() override { Flush(); }
    ErrorBatch(const ErrorBatch&) = delete;
    ErrorBatch& operator=(const ErrorBatch&) = delete;

    void Report(const ErrorInfo& error, std::string_view procedure,
                std::string_view module) noexcept override;

private:
    void Flush() noexcept;

    cSharedLogging& log_;
    std::vector<std::string> lines_;
    bool first_ = true;
};

}  // namespace kaz
