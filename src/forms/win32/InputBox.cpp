#include "forms/win32/InputBox.h"

#include "base/RuntimeError.h"
#include "forms/win32/BoxSize.h"
#include "resources/resource.h"

namespace kaz {

InputBox::InputBox(HINSTANCE module, Dialogs& dialogs) : window_(module, IDD_INPUTBOX), dialogs_(dialogs) {}

std::optional<std::string> InputBox::Ask(const std::string& title, const std::string& prompt,
                                         const std::string& initial) {
    window_.SetText(0, title);
    window_.SetText(IDC_lblPrompt, prompt);
    GrowForLabel(window_.Handle(), IDC_lblPrompt);
    window_.SetText(IDC_txtAnswer, initial);
    window_.SetFocus(IDC_txtAnswer);
    window_.SetListener(this);
    if (window_.ShowModal() != IDOK) return std::nullopt;
    return answer_;
}

void InputBox::OnRaised(int control, Raised what, int) noexcept {
    if (what == Raised::CloseBox || (what == Raised::Click && control == IDCANCEL))
        window_.EndModal(IDCANCEL);
    if (what == Raised::Click && control == IDOK) TakeAnswer();
}

void InputBox::TakeAnswer() {
    try {
        answer_ = window_.Text(IDC_txtAnswer);
        window_.EndModal(IDOK);
    } catch (const RuntimeError& error) {
        // The box stays open, so that the rest of what was typed is not lost.
        dialogs_.Message(error.Description());
    }
}

}  // namespace kaz
