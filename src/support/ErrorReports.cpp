#include "support/ErrorReports.h"

#include "forms/OpenWindows.h"
#include "forms/WindowFactory.h"
#include "platform/Clock.h"
#include "resources/resource.h"

namespace kaz {

namespace {

constexpr double kQuietTime = 1.0 / 24;  // in days

}  // namespace

void ErrorReports::Show(const std::string& text, const std::string& extra) {
    const auto open = open_.lock();
    if ((open && !open->Closed()) || WasShownLately(text)) return;
    auto form = std::make_shared<fSHAREDErrorRpt>(platform_.windows.Create(IDD_ERRORREPORT), platform_,
                                                  openWindows_, log_);
    openWindows_.Add(form);
    open_ = form;
    shown_[text] = platform_.clock.Now();
    form->ShowError(text, extra);
}

bool ErrorReports::WasShownLately(const std::string& text) {
    const double now = platform_.clock.Now().Serial();
    // A clock that was set back must not keep a failure quiet for longer.
    std::erase_if(shown_, [now](const auto& shown) {
        return now < shown.second.Serial() || now - shown.second.Serial() > kQuietTime;
    });
    return shown_.contains(text);
}

}  // namespace kaz
