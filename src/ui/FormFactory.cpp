#include "ui/FormFactory.h"

#include "core/Application.h"
#include "platform/WindowFactory.h"
#include "ui/frmMain.h"

namespace kaz {

std::shared_ptr<MainWindow> MakeMainWindow(Application& application, MainWindowEvents& owner) {
    auto form = std::make_shared<frmMain>(application.platform.windows.Create(IDD_MAIN), application, owner);
    application.openWindows.Add(form);
    form->OnRaised(0, Raised::Load, 0);
    return form;
}

}  // namespace kaz
