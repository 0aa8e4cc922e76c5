#pragma once

#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "resources/resource.h"
#include "ui/main/MainDialogs.h"

#include <memory>
#include <string>

namespace kaz {

// Asks before the program ends without having saved everything.
class frmUnsaved : public ModalForm {
public:
    // `text` says what is not saved, and why.
    frmUnsaved(std::unique_ptr<kaz::Window> window, ErrorSink& errors, const std::string& text);

    // Of the last time that it was asked.
    UnsavedAnswer Answer() const { return answer_; }

private:
    void Choose(UnsavedAnswer answer);

    UnsavedAnswer answer_ = UnsavedAnswer::Cancel;
    Label lblUnsaved{window(), IDC_lblUnsaved};
};

}  // namespace kaz
