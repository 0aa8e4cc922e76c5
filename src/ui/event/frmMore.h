#pragma once

#include "core/Application.h"
#include "forms/Controls.h"
#include "forms/ModalForm.h"
#include "resources/resource.h"
#include "ui/event/RecurrenceFrames.h"
#include "ui/event/WarningControls.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace kaz {

// Asks for what an event has beside its rule and its alarm: the end of its series, the dates on which it does
// not happen, more warnings, and whether it comes in quiet hours too.
class frmMore : public ModalForm {
public:
    // The event as it is typed in the editor. The application outlives the form.
    frmMore(std::unique_ptr<kaz::Window> window, Application& application, clsEvent event);

    // Those of the event, once the user has accepted.
    const EventExtras& Extras() const { return event_.Extras(); }

private:
    void Form_Load();
    void cmdOK_Click();
    void cmdLastDay_Click();
    void cmdPutBack_Click();
    void cmdPutAllBack_Click();

    void ShowLastDay();
    void ShowSkipped();
    EventExtras Typed() const;
    void TakeEnd(EventExtras& extras) const;
    void CheckAll(const clsEvent& event) const;

    Application& app_;
    clsEvent event_;
    DateStyle style_;
    std::vector<std::int32_t> skipped_;
    std::optional<DateValue> lastDay_;
    std::array<WarningControls, WarningControls::kRows> warnings_;
    CheckBox optNoEnd{window(), IDC_optNoEnd};
    CheckBox optLastDay{window(), IDC_optLastDay};
    CheckBox optTimes{window(), IDC_optTimes};
    Button cmdLastDay{window(), IDC_cmdLastDay};
    TextBox txtTimes{window(), IDC_txtTimes};
    ListControl lstSkipped{window(), IDC_lstSkipped};
    CheckBox chkAlways{window(), IDC_chkAlways};
};

}  // namespace kaz
