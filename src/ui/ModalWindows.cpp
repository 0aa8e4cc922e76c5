#include "ui/ModalWindows.h"

#include "forms/WindowFactory.h"
#include "resources/resource.h"
#include "ui/frmAbout.h"
#include "ui/frmEditLayers.h"
#include "ui/main/frmUnsaved.h"
#include "ui/options/frmOptions.h"
#include "ui/restore/frmRestore.h"

namespace kaz {

namespace {

// Among the open windows, so that the end of the program closes it like the others.
bool Ask(Application& application, const std::shared_ptr<ModalForm>& form) {
    application.openWindows.Add(form);
    const bool accepted = form->Ask();
    application.openWindows.Unload(*form);
    return accepted;
}

}  // namespace

bool ShowOptions(Application& application) {
    return Ask(application,
               std::make_shared<frmOptions>(application.platform.windows.Create(IDD_OPTIONS), application));
}

bool ShowCategories(Application& application) {
    return Ask(application,
               std::make_shared<frmEditLayers>(application.platform.windows.Create(IDD_LAYERS), application));
}

void ShowAbout(Application& application) {
    Ask(application, std::make_shared<frmAbout>(application.platform.windows.Create(IDD_ABOUT),
                                                application.errors, application.platform));
}

void ShowRestore(Application& application) {
    Ask(application,
        std::make_shared<frmRestore>(application.platform.windows.Create(IDD_RESTORE), application));
}

UnsavedAnswer AskAboutUnsaved(Application& application, const std::string& text) {
    const auto form = std::make_shared<frmUnsaved>(application.platform.windows.Create(IDD_UNSAVED),
                                                   application.errors, text);
    return Ask(application, form) ? form->Answer() : UnsavedAnswer::Cancel;
}

}  // namespace kaz
