#include "ui/event/EventEditorDialog.h"

#include "forms/WindowFactory.h"
#include "ui/event/frmEvent.h"

#include <memory>

namespace kaz {

bool EventEditorDialog::Edit(clsEvent& event, EditMode mode) {
    const auto form = std::make_shared<frmEvent>(app_.platform.windows.Create(IDD_EVENT), app_, event, mode);
    app_.openWindows.Add(form);
    form->OnRaised(0, Raised::Load, 0);
    const bool saved = form->ShowModal();
    app_.openWindows.Unload(*form);
    if (saved) event = form->Event();
    return saved;
}

}  // namespace kaz
