#include "reminders/frmRunFile.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr int kRest = 1000;  // milliseconds
constexpr std::size_t kLongestEvent = 100;

// In units of 1/96 inch. More characters than these go into a line, mostly.
constexpr std::size_t kLineLength = 60;
constexpr std::size_t kLinesOfTemplate = 4;
constexpr int kLineHeight = 16;

std::string ShortLine(const std::string& text) { return Beginning(OneLine(text), kLongestEvent); }

}  // namespace

frmRunFile::frmRunFile(std::unique_ptr<Window> window, const ReminderServices& services,
                       FileQuestion question, std::function<void()> next)
    : Form(std::move(window), services.errors, "frmRunFile"),
      services_(services),
      question_(std::move(question)),
      next_(std::move(next)) {
    On(IDT_Timer1, Raised::Timer, "Timer1_Timer", &frmRunFile::Timer1_Timer);
    On(0, Raised::Activated, "Form_Activate", &frmRunFile::Form_Activate);
    On(0, Raised::CloseBox, "Form_QueryUnload", &frmRunFile::Form_QueryUnload);
    On(IDC_cmdYes, Raised::Click, "cmdYes_Click", &frmRunFile::cmdYes_Click);
    On(IDC_cmdNo, Raised::Click, "cmdNo_Click", &frmRunFile::cmdNo_Click);
}

void frmRunFile::Ask() {
    lblSource.Text(question_.source);
    lblEvent.Text(ShortLine(question_.event));
    txtFile.Text(question_.file);
    const std::size_t lines = question_.file.size() / kLineLength + 1;
    if (lines > kLinesOfTemplate) {
        // As high as the screen at most; the box has a scroll bar.
        const WindowSize size = window().Size();
        const auto more = std::min(lines - kLinesOfTemplate, std::size_t{100});
        window().SetSize({size.width, size.height + static_cast<int>(more) * kLineHeight});
    }
    // Not a button: there a single letter would be an answer.
    txtFile.SetFocus();
    Rest();
    window().Show(Activation::KeepFocus);
    window().BringToFront();
}

void frmRunFile::Form_Unload() {
    closed_ = true;
    Timer1.Stop();
    window().Hide();
}

// The window before may have closed under the user's hands, who goes on typing.
// By a click he has chosen this one.
void frmRunFile::Form_Activate(int how) {
    if (how != kByMouse) Rest();
}

void frmRunFile::Rest() {
    EnableAnswers(false);
    Timer1.Start(kRest);
}

void frmRunFile::Timer1_Timer() {
    Timer1.Stop();
    EnableAnswers(true);
}

void frmRunFile::EnableAnswers(bool enabled) {
    cmdYes.Enabled(enabled);
    cmdNo.Enabled(enabled);
}

void frmRunFile::Answer(bool yes) {
    if (closed_ || !cmdNo.Enabled()) return;
    services_.openWindows.Unload(*this);
    question_.answer(yes);
    next_();
}

}  // namespace kaz
