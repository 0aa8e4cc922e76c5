#include "ui/event/EditEvent.h"

#include "forms/WindowFactory.h"
#include "ui/event/frmEvent.h"

#include <memory>

namespace kaz {

bool EditEvent(Application& application, clsEvent& event, EditMode mode) {
    const auto form =
        std::make_shared<frmEvent>(application.platform.windows.Create(IDD_EVENT), application, event, mode);
    application.openWindows.Add(form);
    form->OnRaised(0, Raised::Load, 0);
    const bool saved = form->ShowModal();
    application.openWindows.Unload(*form);
    if (saved) event = form->Event();
    return saved;
}

}  // namespace kaz
