#include "ui/words/frmWords.h"

#include "core/Links.h"
#include "forms/WindowFactory.h"

#include <utility>

namespace kaz {

frmWords::frmWords(std::unique_ptr<kaz::Window> window, Application& application,
                   std::function<void(const std::string& code)> added)
    : Form(std::move(window), application.errors, kName),
      line_(this->window(), application, std::move(added)) {
    On(0, Raised::Load, "Form_Load", [this] { line_.Prepare(); });
    On(0, Raised::CloseBox, "Form_QueryUnload", &frmWords::Form_QueryUnload);
    On(IDC_txtWords, Raised::Change, "txtWords_Change", [this] { line_.ShowUnderstood(); });
    On(IDM_HELP, Raised::Click, "mnuHelp_Click", [&application] { ShowHelp(application.platform); });
    On(IDC_cmdAddWords, Raised::Click, "cmdAdd_Click", &frmWords::cmdAdd_Click);
    On(IDC_cmdCloseWords, Raised::Click, "cmdClose_Click", [this] { this->window().Hide(); });
}

void frmWords::ShowWindow() {
    // What is understood of the line depends on the day.
    line_.ShowUnderstood();
    window().Show(Activation::TakeFocus);
    line_.TakeKeyboard();
}

void frmWords::cmdAdd_Click() {
    if (line_.Enter())
        window().Hide();
    else
        line_.TakeKeyboard();
}

void frmWords::Form_QueryUnload(int how) {
    if (how != kByEscape || !line_.Empty()) window().Hide();
}

void ShowWords(Application& application, std::function<void(const std::string& code)> added) {
    auto form = std::dynamic_pointer_cast<frmWords>(application.openWindows.Find(frmWords::kName));
    if (!form) {
        form = std::make_shared<frmWords>(application.platform.windows.Create(IDD_WORDS), application,
                                          std::move(added));
        application.openWindows.Add(form);
        form->OnRaised(0, Raised::Load, 0);
    }
    form->ShowWindow();
}

}  // namespace kaz
