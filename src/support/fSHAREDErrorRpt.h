#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "platform/Platform.h"
#include "resources/resource.h"
#include "support/ErrorReport.h"
#include "support/cSharedLogging.h"

#include <memory>
#include <string>
#include <string_view>

namespace kaz {

// The window that tells a failure and offers to send it to the makers, with the log and a word of the user's.
// Its own failures are only logged.
class fSHAREDErrorRpt : public Form {
public:
    fSHAREDErrorRpt(std::unique_ptr<Window> window, const Platform& platform, OpenWindows& openWindows,
                    cSharedLogging& log);

    // Fills the window and shows it, without taking the keyboard.
    void ShowError(const std::string& text, const std::string& extra);
    // The text as part of a mail link.
    static std::string MakeClean(std::string_view text) { return ErrorReport::MakeClean(text); }

    // Whether it has been closed; it may live on until its handlers have ended.
    bool Closed() const { return closed_; }
    void Form_Unload() override;

private:
    void cmdSubmit_Click();
    void cmdSaveAsText_Click();
    void cmdClose_Click();

    std::string LogText();
    ErrorReport Report() const;
    void SaveAsText(const ErrorReport& report);
    template <class Step>
    void Told(Step step);

    Platform platform_;
    OpenWindows& openWindows_;
    cSharedLogging& log_;
    TextBox txtError{window(), IDC_txtError};
    TextBox txtUserMessage{window(), IDC_txtUserMessage};
    TextBox txtLog{window(), IDC_txtLog};
    bool closed_ = false;
};

}  // namespace kaz
