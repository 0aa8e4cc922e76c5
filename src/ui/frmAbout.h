#pragma once

#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "platform/Platform.h"
#include "resources/resource.h"

#include <memory>

namespace kaz {

// What the program is, and its version.
class frmAbout : public ModalForm {
public:
    frmAbout(std::unique_ptr<Window> window, ErrorSink& errors, const Platform& platform);

private:
    void Form_Load();
    void cmdHomePage_Click();
    void cmdClose_Click() { Leave(); }

    Platform platform_;
    Label lblProduct{window(), IDC_lblProduct};
    Label lblVersion{window(), IDC_lblVersion};
};

}  // namespace kaz
