#include "ui/main/ReminderMenu.h"

#include "base/DateText.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"
#include "resources/resource.h"

namespace kaz {

void ReminderMenu::NameCommands() {
    const Quiet::State quiet = app_.quiet.Look();
    endsQuiet_ = quiet.isOn;
    const std::string until = FormatDate(quiet.until, "HH:NN", app_.platform.locale.Data());
    window_.SetCommand(IDM_QUIET,
                       quiet.isOn ? "&End quiet (it is until " + until + ")" : "Quiet for &2 hours", true);
}

void ReminderMenu::ShowAgain() {
    if (!clock_.ShowAgain())
        app_.platform.dialogs.Message("Nothing is due today, and nothing comes up in the next days.");
}

void ReminderMenu::ShowMissed() {
    if (!app_.reminderWindows.OpenMissed()) app_.platform.dialogs.Message("No reminder was missed.");
}

void ReminderMenu::ShowSleeping() {
    if (!app_.reminderWindows.OpenSleeping()) app_.platform.dialogs.Message("No reminder is asleep.");
}

void ReminderMenu::ChangeQuiet() {
    if (endsQuiet_)
        app_.quiet.End();
    else
        app_.quiet.Choose();
    app_.reminderWatch.LookAtQuiet();
    clock_.WaitForAlarms();
}

}  // namespace kaz
