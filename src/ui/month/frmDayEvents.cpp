#include "ui/month/frmDayEvents.h"

#include <utility>

namespace kaz {

frmDayEvents::frmDayEvents(std::unique_ptr<Window> window, ErrorSink& errors, std::string heading,
                           std::vector<std::string> events, DayCommands commands)
    : ModalForm(std::move(window), errors, "frmDayEvents"),
      heading_(std::move(heading)),
      events_(std::move(events)),
      commands_(std::move(commands)) {
    On(0, Raised::Load, "Form_Load", &frmDayEvents::Form_Load);
    On(0, Raised::CloseBox, "cmdClose_Click", &frmDayEvents::cmdClose_Click);
    On(IDC_cmdCloseDay, Raised::Click, "cmdClose_Click", &frmDayEvents::cmdClose_Click);
    On(IDC_cmdAddDay, Raised::Click, "cmdAdd_Click", &frmDayEvents::cmdAdd_Click);
    On(IDC_cmdEditDay, Raised::Click, "cmdEdit_Click", [this] { Do(commands_.edit); });
    On(IDC_lstDayEvents, Raised::DoubleClick, "cmdEdit_Click", [this] { Do(commands_.edit); });
    On(IDC_cmdSkipDay, Raised::Click, "cmdSkip_Click", [this] { Do(commands_.skip); });
    On(IDC_cmdMoveDay, Raised::Click, "cmdMove_Click", [this] { Do(commands_.move); });
}

void frmDayEvents::Form_Load() {
    window().SetText(0, heading_);
    for (const int button : {IDC_cmdEditDay, IDC_cmdSkipDay, IDC_cmdMoveDay})
        window().SetEnabled(button, !events_.empty());
    window().SetText(IDC_cmdSkipDay, "&Skip " + commands_.day);
    window().SetText(IDC_cmdMoveDay, "&Move " + commands_.day + " to...");
    lstEvents.Items(events_);
    lstEvents.Select(events_.empty() ? -1 : 0);
    window().SetControlVisible(IDC_lblNoEvents, events_.empty());
    window().SetControlVisible(IDC_lstDayEvents, !events_.empty());
    window().SetFocus(events_.empty() ? IDC_cmdAddDay : IDC_lstDayEvents);
}

void frmDayEvents::cmdAdd_Click() {
    if (commands_.add()) Leave();
}

// What was done shows in the month.
void frmDayEvents::Do(const std::function<bool(int row)>& command) {
    if (const int row = lstEvents.Selected(); row >= 0 && command(row)) Leave();
}

}  // namespace kaz
