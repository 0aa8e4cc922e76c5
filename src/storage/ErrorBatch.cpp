#include "storage/ErrorBatch.h"

namespace kaz {

void ErrorBatch::Report(const ErrorInfo& error, std::string_view procedure,
                        std::string_view module) noexcept {
    constexpr std::size_t kMostLines = 1000;
    // The first one goes the usual way, so that the actions that led to it stand right behind it.
    if (!first_) {
        try {
            std::string& line = lines_.emplace_back("Error ");
            line.append(std::to_string(error.number)).append(" (").append(error.description).append(") in ");
            line.append(procedure).append(" of ").append(module);
            if (lines_.size() >= kMostLines) Flush();
            return;
        } catch (...) {
            Flush();
        }
    }
    first_ = false;
    log_.Report(error, procedure, module);
}

void ErrorBatch::Flush() noexcept {
    log_.LogEvents(lines_);
    lines_.clear();
}

}  // namespace kaz
