#include "ui/FormFactory.h"

#include "core/Application.h"
#include "forms/WindowFactory.h"
#include "ui/ModalWindows.h"
#include "ui/event/EditEvent.h"
#include "ui/forecast/frmForecast.h"
#include "ui/forecast/frmTestReminders.h"
#include "ui/main/frmMain.h"
#include "ui/month/ShowMonth.h"
#include "ui/tasks/frmTasks.h"
#include "ui/words/frmWords.h"

#include <utility>

namespace kaz {

namespace {

MainDialogs DialogsOf(Application& application) {
    return {[&application](clsEvent& event, EditMode mode) { return EditEvent(application, event, mode); },
            [&application] { ShowOptions(application); },
            [&application] { ShowCategories(application); },
            [&application] { ShowAbout(application); },
            [&application] { ShowRestore(application); },
            [&application](const std::string& text) { return AskAboutUnsaved(application, text); },
            [&application] { ShowTasks(application); },
            [&application](int month, int year) { ShowMonth(application, month, year); },
            [&application] { ShowForecast(application); },
            [&application] { TestReminders(application); },
            [&application](std::function<void(const std::string&)> added) {
                ShowWords(application, std::move(added));
            }};
}

}  // namespace

std::shared_ptr<MainWindow> MakeMainWindow(Application& application, MainWindowEvents& owner) {
    auto form = std::make_shared<frmMain>(application.platform.windows.Create(IDD_MAIN), application, owner,
                                          DialogsOf(application));
    application.openWindows.Add(form);
    form->OnRaised(0, Raised::Load, 0);
    return form;
}

}  // namespace kaz
