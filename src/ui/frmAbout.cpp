#include "ui/frmAbout.h"

#include "core/Links.h"
#include "support/Names.h"

namespace kaz {

frmAbout::frmAbout(std::unique_ptr<Window> window, ErrorSink& errors, const Platform& platform)
    : ModalForm(std::move(window), errors, "frmAbout"),
      platform_(platform) {
    On(0, Raised::Load, "Form_Load", &frmAbout::Form_Load);
    On(0, Raised::CloseBox, "cmdClose_Click", &frmAbout::cmdClose_Click);
    On(IDC_cmdCloseAbout, Raised::Click, "cmdClose_Click", &frmAbout::cmdClose_Click);
    On(IDC_cmdAboutHomePage, Raised::Click, "cmdHomePage_Click", &frmAbout::cmdHomePage_Click);
}

void frmAbout::Form_Load() {
    lblProduct.Text(std::string(kApplicationName));
    lblVersion.Text("Version " + VersionText());
    window().SetFocus(IDC_cmdCloseAbout);
}

void frmAbout::cmdHomePage_Click() { ShowHomePage(platform_); }

}  // namespace kaz
