#include "support/cSHAREDShowError.h"

namespace kaz {

void cSHAREDShowError::ShowErr(std::string_view text, std::string_view extra) noexcept {
    log_.LogEvent(text);
    log_.WriteActionsToLog();
    ErrorTrap trap(log_, "ShowErr", "cSHAREDShowError");
    trap([&] { Show(std::string(text), extra); });
}

void cSHAREDShowError::ShowErrObj(const ErrorInfo& error, std::string_view procedure, std::string_view module,
                                  std::string_view extra) noexcept {
    // First the log, because the report shows its contents.
    log_.LogError(error, procedure, module);
    ErrorTrap trap(log_, "ShowErrObj", "cSHAREDShowError");
    trap([&] {
        std::string text = "Error " + std::to_string(error.number) + " - " + error.description + " in ";
        Show(text.append(procedure).append(" of ").append(module), extra);
    });
}

void cSHAREDShowError::Show(const std::string& text, std::string_view extra) {
    // The report is a window, which can fail in its turn; one report of a failed report would follow another.
    if (showing_ || !reporter_) return;
    struct Showing {
        bool& flag;
        explicit Showing(bool& value) : flag(value) { flag = true; }
        ~Showing() { flag = false; }
    } const showing(showing_);
    reporter_(text, std::string(extra));
}

}  // namespace kaz
