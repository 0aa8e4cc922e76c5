#include "ui/frmEditLayers.h"

#include "base/Text.h"
#include "platform/Dialogs.h"
#include "ui/CategoryNaming.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <cstdint>
#include <string>

namespace kaz {

frmEditLayers::frmEditLayers(std::unique_ptr<Window> window, Application& application)
    : ModalForm(std::move(window), application.errors, "frmEditLayers"),
      app_(application) {
    for (int slot = 0; slot < clsLayers::kCount; ++slot) {
        txtDesc.emplace_back(this->window(), IDC_txtLayer + slot);
        On(IDC_txtLayer + slot, Raised::Focus, "txtDesc_GotFocus",
           [this, slot] { txtDesc[static_cast<std::size_t>(slot)].HighlightText(); });
    }
    On(0, Raised::Load, "Form_Load", &frmEditLayers::Form_Load);
    On(IDC_cmdAccept, Raised::Click, "cmdAccept_Click", &frmEditLayers::cmdAccept_Click);
    On(IDC_cmdSuggest, Raised::Click, "cmdSuggest_Click", &frmEditLayers::cmdSuggest_Click);
    On(IDC_cmdAbortLayers, Raised::Click, "cmdAbort_Click", &frmEditLayers::cmdAbort_Click);
    On(0, Raised::CloseBox, "cmdAbort_Click", &frmEditLayers::cmdAbort_Click);
}

void frmEditLayers::Form_Load() {
    for (std::int16_t slot = 0; slot < clsLayers::kCount; ++slot)
        txtDesc[static_cast<std::size_t>(slot)].Text(std::string(Trim(app_.layers.Layer(slot))));
    txtDesc[1].SetFocus();
}

CategoryStep::CategoryNames frmEditLayers::Typed() const {
    CategoryStep::CategoryNames names;
    for (std::size_t slot = 0; slot < names.size(); ++slot) {
        FittingText(txtDesc[slot]);
        names[slot] = StorableText(txtDesc[slot], "The name of a category");
    }
    return names;
}

void frmEditLayers::cmdSuggest_Click() {
    CategoryStep::CategoryNames names;
    for (std::size_t slot = 0; slot < names.size(); ++slot)
        names[slot] = txtDesc[slot].Text();
    SuggestNames(names, app_.platform.locale.Folding());
    for (std::size_t slot = 0; slot < names.size(); ++slot)
        txtDesc[slot].Text(names[slot]);
}

bool frmEditLayers::IsMeant(const CategoryStep::CategoryNames& names) {
    const auto doubt = DoubtOf(CategoryStep::NamesOf(app_.layers), names, app_.platform.locale.Folding());
    if (!doubt || app_.platform.dialogs.AskYesNo(doubt->question, Dialogs::Default::No)) return true;
    txtDesc[doubt->slot].SetFocus();
    return false;
}

void frmEditLayers::cmdAccept_Click() {
    // All of them are read before the first one changes, so that a name which cannot be stored changes none.
    CategoryStep::CategoryNames names;
    try {
        names = Typed();
    } catch (const FieldFault& fault) {
        app_.platform.dialogs.Message(fault.Description());
        window().SetFocus(fault.Control());
        return;
    }
    if (!IsMeant(names)) return;
    CategoryStep::Rename(app_, names);
    Accept();
}

}  // namespace kaz
