#include "support/fSHAREDErrorRpt.h"

#include "base/CodePage.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "forms/OpenWindows.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/SystemInfo.h"
#include "support/Endpoints.h"
#include "support/Names.h"

namespace kaz {

namespace {

constexpr std::string_view kTextFile = "FullLog.txt";

}  // namespace

fSHAREDErrorRpt::fSHAREDErrorRpt(std::unique_ptr<Window> window, const Platform& platform,
                                 OpenWindows& openWindows, cSharedLogging& log)
    : Form(std::move(window), log, "fSHAREDErrorRpt"),
      platform_(platform),
      openWindows_(openWindows),
      log_(log) {
    On(IDC_cmdSubmit, Raised::Click, "cmdSubmit_Click", &fSHAREDErrorRpt::cmdSubmit_Click);
    On(IDC_cmdSaveAsText, Raised::Click, "cmdSaveAsText_Click", &fSHAREDErrorRpt::cmdSaveAsText_Click);
    On(IDC_cmdCloseReport, Raised::Click, "cmdClose_Click", &fSHAREDErrorRpt::cmdClose_Click);
    On(0, Raised::CloseBox, "cmdClose_Click", &fSHAREDErrorRpt::cmdClose_Click);
}

void fSHAREDErrorRpt::ShowError(const std::string& text, const std::string& extra) {
    txtError.Text(extra.empty() ? text : text + std::string(kLineBreak) + extra);
    txtLog.Text(LogText());
    txtUserMessage.SetFocus();
    window().Show(Activation::KeepFocus);
    window().BringToFront();
}

std::string fSHAREDErrorRpt::LogText() {
    const std::string file = log_.CurrentLogFilename();
    if (!FileExists(platform_.files, file)) return "No log file";
    try {
        return CodePage::OfSystem().Decode(ReadWholeFile(platform_.files, file));
    } catch (const RuntimeError& error) {
        return "The log could not be read: " + error.Description();
    }
}

ErrorReport fSHAREDErrorRpt::Report() const {
    return {std::string(kApplicationName),
            VersionText(),
            platform_.system.OperatingSystem(),
            BugReportAddress(platform_.clock.Today().Civil().year),
            log_.CurrentLogFilename(),
            txtError.Text(),
            txtUserMessage.Text(),
            txtLog.Text()};
}

// What the user has to know of a failure here: a report of the report would help nobody.
template <class Step>
void fSHAREDErrorRpt::Told(Step step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        platform_.dialogs.Message(error.Description());
    }
}

void fSHAREDErrorRpt::cmdSubmit_Click() {
    Told([&] {
        const ErrorReport report = Report();
        const auto link = report.MailLink();
        std::string reason = "This report is too long for your mail program.";
        if (link) {
            try {
                platform_.shell.Open(*link);
                return;
            } catch (const RuntimeError& error) {
                log_.LogEvent("The mail program could not be opened: " + error.Description());
                reason = "Your mail program could not be opened.";
            }
        }
        platform_.dialogs.Message(reason +
                                  "\r\nThe report is saved as a text now. Please mail it to the address that "
                                  "it names.");
        SaveAsText(report);
    });
}

void fSHAREDErrorRpt::cmdSaveAsText_Click() {
    Told([&] { SaveAsText(Report()); });
}

void fSHAREDErrorRpt::SaveAsText(const ErrorReport& report) {
    const std::string file = JoinPath(platform_.system.UserFolder(), kTextFile);
    try {
        WriteWholeFile(platform_.files, file, CodePage::OfSystem().Encode(report.AsText()));
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(), file + " could not be written: " + error.Description());
    }
    try {
        platform_.shell.Open(file);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number(), "The report is saved as " + file +
                                               ", but it could not be opened: " + error.Description());
    }
}

void fSHAREDErrorRpt::cmdClose_Click() { openWindows_.Unload(*this); }

void fSHAREDErrorRpt::Form_Unload() {
    closed_ = true;
    window().Hide();
}

}  // namespace kaz
