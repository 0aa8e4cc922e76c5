#include "ui/month/frmDayEvents.h"

#include <utility>

namespace kaz {

frmDayEvents::frmDayEvents(std::unique_ptr<Window> window, ErrorSink& errors, std::string heading,
                           std::vector<std::string> events)
    : ModalForm(std::move(window), errors, "frmDayEvents"),
      heading_(std::move(heading)),
      events_(std::move(events)) {
    On(0, Raised::Load, "Form_Load", &frmDayEvents::Form_Load);
    On(0, Raised::CloseBox, "cmdClose_Click", &frmDayEvents::cmdClose_Click);
    On(IDC_cmdCloseDay, Raised::Click, "cmdClose_Click", &frmDayEvents::cmdClose_Click);
}

void frmDayEvents::Form_Load() {
    window().SetText(0, heading_);
    if (events_.empty()) events_.emplace_back("No events");
    lstEvents.Items(events_);
    lstEvents.Select(0);
    lstEvents.SetFocus();
}

}  // namespace kaz
