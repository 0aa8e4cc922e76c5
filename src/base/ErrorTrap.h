#pragma once

#include <string>
#include <string_view>

namespace kaz {

// What is known of a failure once it has been caught.
struct ErrorInfo {
    int number = 0;
    std::string description;
};

// Classifies the exception in flight. Call inside a catch block only; never throws a second exception
// (when memory is short the description is left empty).
ErrorInfo CurrentError() noexcept;

// Where a trapped failure is told: the log for library and model code, the error report for windows and the
// component's operations. Implementations must not throw.
class ErrorSink {
public:
    virtual ~ErrorSink() = default;
    virtual void Report(const ErrorInfo& error, std::string_view procedure,
                        std::string_view module) noexcept = 0;
};

// "Tell the failure, then go on with the next statement": each call of the trap runs one step, and a step
// that throws is reported under the procedure and the module instead of ending the whole procedure.
class ErrorTrap {
public:
    ErrorTrap(ErrorSink& sink, std::string_view procedure, std::string_view module) noexcept
        : sink_(sink),
          procedure_(procedure),
          module_(module) {}

    // Returns whether the step came to its end.
    template <class Step>
    bool operator()(Step&& step) noexcept {
        try {
            step();
            return true;
        } catch (...) {
            Report();
            return false;
        }
    }

    // Reports the exception in flight; for a function-level catch block that leaves the procedure.
    void Report() noexcept { sink_.Report(CurrentError(), procedure_, module_); }

private:
    ErrorSink& sink_;
    std::string_view procedure_;
    std::string_view module_;
};

// For a step whose failure nobody can be told of, as the log's own, or need be told of.
template <class Step>
void Quietly(Step&& step) noexcept {
    try {
        step();
    } catch (...) {
        static_cast<void>(0);
    }
}

}  // namespace kaz
