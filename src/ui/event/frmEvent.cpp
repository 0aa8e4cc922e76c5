#include "ui/event/frmEvent.h"

#include "base/Text.h"
#include "forms/Window.h"
#include "forms/WindowFactory.h"
#include "model/RulePreview.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "resources/resource.h"
#include "storage/clsSounds.h"
#include "ui/event/ExtrasText.h"
#include "ui/event/frmMore.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <utility>
#include <vector>

namespace kaz {

namespace {

// Leaves of the event editor the frame for sharing and the two buttons, and makes the window fit around them.
void ShowSharingOnly(Window& window);

// In units of 1/96 inch.
constexpr int kMargin = 50;  // around everything, both sides together
constexpr int kGap = 12;     // between the frame and the buttons

void MoveBy(Window& window, int control, int right, int down) {
    ControlPlace place = window.Place(control);
    place.left += right;
    place.top += down;
    window.SetPlace(control, place);
}

void ShowSharingOnly(Window& window) {
    for (int control = IDC_frmEventFirst; control <= IDC_frmEventLast; ++control)
        window.SetControlVisible(control, false);

    const ControlPlace before = window.Place(IDC_FrameShared);
    for (const int control :
         {IDC_FrameShared, IDC_chkShared, IDC_chkSpecificShare, IDC_lblUsers, IDC_lstUsers}) {
        MoveBy(window, control, kMargin / 2 - before.left, kMargin / 2 - before.top);
        window.SetControlVisible(control, true);
    }
    const ControlPlace frame = window.Place(IDC_FrameShared);
    const ControlPlace abort = window.Place(IDC_cmdAbort);
    for (const int button : {IDC_cmdSave, IDC_cmdAbort}) {
        MoveBy(window, button, frame.left + frame.width - (abort.left + abort.width),
               frame.top + frame.height + kGap - abort.top);
        window.SetControlVisible(button, true);
    }
    window.SetInnerSize(
        {frame.width + kMargin, frame.top + frame.height + kGap + abort.height + kMargin / 2});
}

constexpr int kSaved = 1;
constexpr int kAborted = 2;

}  // namespace

frmEvent::frmEvent(std::unique_ptr<kaz::Window> window, Application& application, clsEvent event,
                   EditMode mode)
    : Form(std::move(window), application.errors, "frmEvent"),
      app_(application),
      event_(std::move(event)),
      mode_(mode),
      extras_(event_.Extras()),
      extrasRule_(event_.Rule()),
      datePattern_(application.DatePattern()),
      alarm_(this->window(), application.platform.locale.Data()),
      actions_(this->window(), application.platform.files, application.platform.dialogs),
      share_(this->window(), application.platform.locale.Folding()),
      tabs_(this->window(), {datePattern_, application.platform.locale.Data()}) {
    On(0, Raised::Load, "Form_Load", &frmEvent::Form_Load);
    On(0, Raised::CloseBox, "cmdAbort_Click", &frmEvent::cmdAbort_Click);
    On(IDC_cmdSave, Raised::Click, "cmdSave_Click", &frmEvent::cmdSave_Click);
    On(IDC_cmdAbort, Raised::Click, "cmdAbort_Click", &frmEvent::cmdAbort_Click);
    On(IDC_cmdMore, Raised::Click, "cmdMore_Click", &frmEvent::cmdMore_Click);
    On(IDC_chkTimed, Raised::Click, "chkTimed_Click", &frmEvent::chkTimed_Click);
    On(IDC_txtTime, Raised::Change, "txtTime_Change", &frmEvent::txtTime_Change);
    On(IDC_txtTime, Raised::Leave, "txtTime_LostFocus", &frmEvent::txtTime_LostFocus);
    On(IDC_txtMinutesWarning, Raised::Change, "txtMinutesWarning_Change", &frmEvent::txtTime_Change);
    On(IDC_chkMakeNoise, Raised::Click, "chkMakeNoise_Click", &frmEvent::chkMakeNoise_Click);
    On(IDC_chkRunFile, Raised::Click, "chkRunFile_Click", &frmEvent::chkRunFile_Click);
    On(IDC_chkEmailTo, Raised::Click, "chkEmailTo_Click", &frmEvent::chkEmailTo_Click);
    On(IDC_chkShared, Raised::Click, "chkShared_Click", &frmEvent::chkShared_Click);
    On(IDC_chkSpecificShare, Raised::Click, "chkSpecificShare_Click", &frmEvent::chkShared_Click);
    On(IDC_cmdPickWav, Raised::Click, "cmdPickWav_Click", &frmEvent::cmdPickWav_Click);
    On(IDC_cmdPickFile, Raised::Click, "cmdPickFile_Click", &frmEvent::cmdPickFile_Click);
    On(IDC_TabStrip1, Raised::Select, "TabStrip1_Click", &frmEvent::TabStrip1_Click);
    On(IDC_lblMonthlyStartDate, Raised::Click, "lblMonthlyStartDate_Click",
       &frmEvent::lblMonthlyStartDate_Click);
    On(IDC_lblWeeklyStartDate, Raised::Click, "lblWeeklyStartDate_Click",
       &frmEvent::lblWeeklyStartDate_Click);
    On(IDC_lblDailyStartDate, Raised::Click, "lblDailyStartDate_Click", &frmEvent::lblDailyStartDate_Click);
    ListenToRule();
    // What is typed into a number takes its place, rather than standing before or behind it.
    for (const int number : {IDC_txtDaysWarning, IDC_txtMinutesWarning, IDC_txtDayOfMonth,
                             IDC_txtMonthlyPeriod, IDC_txtWeeklyPeriod, IDC_txtDailyPeriod})
        On(number, Raised::Focus, "txtNumber_GotFocus",
           [this, number] { TextBox(this->window(), number).HighlightText(); });
}

// Whatever else decides the next dates, so that the preview follows it.
void frmEvent::ListenToRule() {
    for (int day = 0; day < 7; ++day)
        On(IDC_chkDay + day, Raised::Click, "chkDay_Click", &frmEvent::ShowPreview);
    for (const int option : {IDC_optRepeat, IDC_optShowOnce})
        On(option, Raised::Click, "optRepeat_Click", &frmEvent::ShowPreview);
    for (const int text : {IDC_txtDayOfMonth, IDC_txtMonthlyPeriod, IDC_txtWeeklyPeriod, IDC_txtDailyPeriod})
        On(text, Raised::Change, "txtPeriod_Change", &frmEvent::ShowPreview);
    for (const int list : {IDC_lstMonthNames, IDC_lstDayNumber, IDC_lstDayName, IDC_lstMonths})
        On(list, Raised::Select, "lstMonths_Click", &frmEvent::ShowPreview);
}

void frmEvent::Form_Load() {
    ErrorTrap trap(errors(), "Form_Load", Name());
    trap([&] { ShowNew(); });
    trap([&] {
        const bool networked = app_.Networked();
        share_.Load(networked, networked ? app_.Folder().Users() : std::vector<std::string>{});
    });
    trap([&] {
        if (!event_.IDCode.empty()) CopyDataToForm();
    });
    trap([&] { tabs_.ShowFrame(); });
    trap([&] { SetupRelatedItems(); });
    trap([&] { alarm_.ShowAdvice(); });
    trap([&] { ShowPreview(); });
    if (mode_ == EditMode::SharingOnly) trap([&] { ConvertToPickShareMode(); });
}

void frmEvent::ShowNew() {
    // One more than can be saved, so that saving knows of what was cut off and tells.
    txtDesc.MaxLength(static_cast<int>(clsEvent::kLongestShown) + 1);
    std::vector<std::string> names;
    for (std::int16_t slot = 0; slot < clsLayers::kAll; ++slot)
        names.push_back(app_.layers.Layer(slot));
    cmbLayers.Items(names);
    cmbLayers.Select(clsLayers::kFirstOwn);
    txtDaysWarning.Text("0");
    optRepeat.Checked(event_.Recurring());
    optShowOnce.Checked(!event_.Recurring());
    alarm_.ShowNew(app_.platform.clock.Now());
    tabs_.ShowNew(app_.platform.clock.Today());
}

void frmEvent::CopyDataToForm() {
    ErrorTrap trap(errors(), "CopyDataToForm", Name());
    trap([&] { ShowDescription(); });
    trap([&] { shownDescription_ = txtDesc.Text(); });
    trap([&] { share_.Show(event_); });
    trap([&] { alarm_.Show(event_); });
    trap([&] { actions_.Show(event_); });
    trap([&] {
        optRepeat.Checked(event_.Recurring());
        optShowOnce.Checked(!event_.Recurring());
        cmbLayers.Select(event_.Layer());
        txtDaysWarning.Text(std::to_string(event_.DaysWarning()));
    });
    trap([&] { tabs_.Show(event_); });
}

// One that is too long to be edited stays as it is, whatever else is changed.
void frmEvent::ShowDescription() {
    std::string text(event_.DescShown());
    if (event_.IsDescCut()) {
        text = "[This description is too long to be changed here: it has " +
               std::to_string(event_.Desc().size()) +
               " characters. KAZ keeps it whole, and shows the first " +
               std::to_string(clsEvent::kLongestShown) + ".]\r\n" + text;
        txtDesc.Enabled(false);
    }
    txtDesc.Text(text);
}

bool frmEvent::CopyFormToData() {
    try {
        clsEvent edited = event_;
        if (mode_ == EditMode::SharingOnly)
            share_.Take(edited);  // what is hidden is neither checked nor changed
        else
            CopyFields(edited);
        event_ = std::move(edited);
        return true;
    } catch (const FieldFault& fault) {
        app_.platform.dialogs.Message(fault.Description());
        window().SetFocus(fault.Control());
    } catch (...) {
        TellFailure();
    }
    return false;
}

void frmEvent::CopyFields(clsEvent& event) {
    alarm_.Take(event);
    CopyDescription(event);
    alarm_.FillEmpty();
    if (Trim(TypedText(txtDaysWarning)).empty()) txtDaysWarning.Text("0");
    share_.Take(event);
    actions_.Take(event);
    event.Owner(app_.Owner());
    event.Recurring(optRepeat.Checked());
    const std::string days = "Please enter the days of warning as a whole number from 0 to 32767";
    event.DaysWarning(TypedNumber(txtDaysWarning, 0, INT16_MAX, {days, days}));
    // A category that is not in the list stays as it is.
    if (cmbLayers.Selected() >= 0) event.Layer(static_cast<std::int16_t>(cmbLayers.Selected()));
    tabs_.Take(event);
    event.Extras(ExtrasFor(event));
    if (const std::string fault = ExtrasFault(event, Style(), app_.platform.clock.Today()); !fault.empty())
        throw FieldFault(IDC_cmdMore, fault);
    if (!event.Email.empty()) app_.settings.StoreSetting("DefaultEmail", event.Email);
}

// A text box cannot show every byte that a description may hold; one that the
// user has not touched keeps them all.
void frmEvent::CopyDescription(clsEvent& event) const {
    const std::string text = TypedText(txtDesc);
    if (!event.IDCode.empty() && text == shownDescription_) return;
    if (text.size() > clsEvent::kLongestShown)
        throw FieldFault(
            IDC_txtDesc,
            "The description is too long: it can have " + std::to_string(clsEvent::kLongestShown) +
                " characters. What was pasted beyond them is not in the field; please shorten it");
    event.Desc(text);
}

void frmEvent::TellFailure() {
    const ErrorInfo failure = CurrentError();
    app_.log.LogError(failure, "CopyFormToData", Name());
    std::string text = failure.description;
    // Kept on purpose: while an alarm is set, whatever else fails is put down to the time.
    if (alarm_.Ticked()) text = "Time field " + alarm_.TimeText() + " is not valid, please correct";
    if (text.empty()) text = "An error occurred.  Please check the data fields.";
    app_.platform.dialogs.Message(text);
}

void frmEvent::SetupRelatedItems() {
    alarm_.FollowTick();
    actions_.FollowTick();
    share_.FollowTicks();
}

void frmEvent::ConvertToPickShareMode() { ShowSharingOnly(window()); }

bool frmEvent::ShowModal() {
    const int first = txtDesc.Enabled() ? IDC_txtDesc : IDC_cmdSave;
    window().SetFocus(mode_ == EditMode::SharingOnly ? IDC_chkShared : first);
    return window().ShowModal() == kSaved;
}

void frmEvent::Form_Unload() { window().EndModal(kAborted); }

void frmEvent::cmdSave_Click() {
    if (CopyFormToData()) window().EndModal(kSaved);
}

void frmEvent::cmdAbort_Click() { window().EndModal(kAborted); }

void frmEvent::chkTimed_Click() {
    SetupRelatedItems();
    txtTime_Change();
}

void frmEvent::txtTime_Change() {
    alarm_.ShowAdvice();
    ShowPreview();
}

void frmEvent::txtTime_LostFocus() {
    alarm_.CompleteTime();
    txtTime_Change();
}

void frmEvent::chkMakeNoise_Click() {
    actions_.FollowSoundTick(DefaultAlarmSound(app_.platform.files, app_.settings, app_.runtimePath));
}

void frmEvent::chkRunFile_Click() {
    SetupRelatedItems();
    ShowPreview();
}

void frmEvent::chkEmailTo_Click() { actions_.FollowEmailTick(app_.settings.TextOr("DefaultEmail", "")); }

void frmEvent::chkShared_Click() { share_.FollowTicks(); }

void frmEvent::cmdPickWav_Click() { actions_.PickSound(); }

void frmEvent::cmdPickFile_Click() { actions_.PickFile(); }

void frmEvent::TabStrip1_Click() {
    tabs_.ShowFrame();
    ShowPreview();
}

void frmEvent::lblMonthlyStartDate_Click() { PickStartDate(tabs_.months); }
void frmEvent::lblWeeklyStartDate_Click() { PickStartDate(tabs_.weeks); }
void frmEvent::lblDailyStartDate_Click() { PickStartDate(tabs_.days); }

void frmEvent::PickStartDate(IntervalFrame& frame) {
    frame.PickStartDate(app_.platform.dialogs, app_.platform.clock.Today());
    ShowPreview();
}

// The rule and the time as they are typed decide what can be chosen there.
void frmEvent::cmdMore_Click() {
    try {
        clsEvent event = AsTyped();
        if (alarm_.Ticked()) alarm_.Take(event);
        const auto form = std::make_shared<frmMore>(app_.platform.windows.Create(IDD_MORE), app_, event);
        app_.openWindows.Add(form);
        const bool accepted = form->Ask();
        app_.openWindows.Unload(*form);
        if (!accepted) return;
        extras_ = form->Extras();
        if (event.Recurring()) extrasRule_ = event.Rule();
        ShowPreview();
    } catch (const FieldFault& fault) {
        app_.platform.dialogs.Message(fault.Description());
        window().SetFocus(fault.Control());
    }
}

EventExtras frmEvent::ExtrasFor(const clsEvent& event) const {
    EventExtras extras = extras_;
    if (!event.Recurring()) {
        extras.skipped.clear();
        extras.lastDay.reset();
        extras.times = 0;
    } else if (event.Rule() != extrasRule_) {
        extras = UnderRule(std::move(extras), event.Rule(), app_.platform.clock.Today());
    }
    return extras;
}

void frmEvent::ShowPreview() {
    RulePreview preview;
    try {
        const clsEvent event = AsTyped();
        preview = RulePreview(event, app_.platform.clock.Now());
        lblMore.Text(ExtrasInWords(event, Style()));
    } catch (const FieldFault&) {
        // The user is still typing: there is nothing to show yet, and nothing to complain of.
    }
    lblPreview.Text(preview.DatesLine(datePattern_, app_.platform.locale.Data()));
    lblPreviewWarning.Text(preview.Warning());
}

// Throws FieldFault while the rule is incomplete; the other fields are taken as far as they can be.
clsEvent frmEvent::AsTyped() const {
    clsEvent event = event_;
    tabs_.Take(event);
    event.Recurring(optRepeat.Checked());
    event.MinutesWarning(0);
    const auto asFarAsPossible = [](auto take) {
        try {
            take();
        } catch (const FieldFault&) {
            // It only adds to the warnings.
        }
    };
    asFarAsPossible([&] { alarm_.Take(event); });
    asFarAsPossible([&] { actions_.Take(event); });
    event.Extras(ExtrasFor(event));
    return event;
}

}  // namespace kaz
