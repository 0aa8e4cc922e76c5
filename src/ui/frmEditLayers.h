#pragma once

#include "commands/CategoryStep.h"
#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "resources/resource.h"

#include <memory>
#include <vector>

namespace kaz {

// The names of all categories. Those of the first and the last slot are fixed and can be read only.
class frmEditLayers : public ModalForm {
public:
    frmEditLayers(std::unique_ptr<Window> window, Application& application);

private:
    void Form_Load();
    void cmdAccept_Click();
    void cmdSuggest_Click();
    void cmdAbort_Click() { Leave(); }

    CategoryStep::CategoryNames Typed() const;
    bool IsMeant(const CategoryStep::CategoryNames& names);

    Application& app_;
    std::vector<TextBox> txtDesc;  // by slot
};

}  // namespace kaz
