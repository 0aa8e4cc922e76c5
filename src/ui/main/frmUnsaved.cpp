#include "ui/main/frmUnsaved.h"

namespace kaz {

frmUnsaved::frmUnsaved(std::unique_ptr<kaz::Window> window, ErrorSink& errors, const std::string& text)
    : ModalForm(std::move(window), errors, "frmUnsaved") {
    lblUnsaved.Text(text);
    const struct {
        int control;
        UnsavedAnswer answer;
    } buttons[] = {{IDC_cmdUnsavedTryAgain, UnsavedAnswer::TryAgain},
                   {IDC_cmdUnsavedCopy, UnsavedAnswer::SaveCopy},
                   {IDC_cmdUnsavedLose, UnsavedAnswer::Lose},
                   {IDC_cmdUnsavedCancel, UnsavedAnswer::Cancel}};
    for (const auto& button : buttons)
        On(button.control, Raised::Click, "cmdUnsaved_Click",
           [this, answer = button.answer] { Choose(answer); });
    On(0, Raised::CloseBox, "cmdUnsaved_Click", [this] { Choose(UnsavedAnswer::Cancel); });
}

void frmUnsaved::Choose(UnsavedAnswer answer) {
    answer_ = answer;
    if (answer == UnsavedAnswer::Cancel)
        Leave();
    else
        Accept();
}

}  // namespace kaz
