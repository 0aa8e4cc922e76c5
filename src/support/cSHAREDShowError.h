#pragma once

#include "base/ErrorTrap.h"
#include "support/cSharedLogging.h"

#include <functional>
#include <string>
#include <string_view>

namespace kaz {

// Where windows and the component's operations tell their failures: each is logged and, once there is
// somebody to show it to the user, shown. No operation throws.
class cSHAREDShowError : public ErrorSink {
public:
    using Reporter = std::function<void(const std::string& text, const std::string& extra)>;

    explicit cSHAREDShowError(cSharedLogging& log) : log_(log) {}

    // Who shows the failures from now on; an empty one for the log alone. A failure inside the reporter
    // itself is logged and not shown.
    void ShowThrough(Reporter reporter) { reporter_ = std::move(reporter); }

    void ShowErr(std::string_view text, std::string_view extra = {}) noexcept;
    void ShowErrObj(const ErrorInfo& error, std::string_view procedure, std::string_view module,
                    std::string_view extra = {}) noexcept;

    void Report(const ErrorInfo& error, std::string_view procedure,
                std::string_view module) noexcept override {
        ShowErrObj(error, procedure, module);
    }

private:
    void Show(const std::string& text, std::string_view extra);

    cSharedLogging& log_;
    Reporter reporter_;
    bool showing_ = false;
};

}  // namespace kaz
