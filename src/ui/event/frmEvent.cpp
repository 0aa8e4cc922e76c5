#include "ui/event/frmEvent.h"

#include "base/Text.h"
#include "forms/Window.h"
#include "forms/WindowFactory.h"
#include "model/AlarmTime.h"
#include "model/RulePreview.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "resources/resource.h"
#include "storage/clsSounds.h"
#include "ui/event/Doubts.h"
#include "ui/event/EditorShape.h"
#include "ui/event/ExtrasText.h"
#include "ui/event/frmMore.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace kaz {

namespace {

constexpr const char* kPickStart = "Pick a start date";
constexpr const char* kTypeDay = "Type a day, or pick one";

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
      description_(this->window()),
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
    On(IDC_txtTime, Raised::Focus, "txtTime_GotFocus", [this] {
        TextBox(this->window(), IDC_txtTime).HighlightText();
        inTime_ = true;
    });
    On(IDC_txtTime, Raised::Leave, "txtTime_LostFocus", &frmEvent::txtTime_LostFocus);
    On(IDC_txtMinutesWarning, Raised::Change, "txtMinutesWarning_Change", &frmEvent::txtTime_Change);
    On(IDC_chkMakeNoise, Raised::Click, "chkMakeNoise_Click", &frmEvent::chkMakeNoise_Click);
    On(IDC_chkRunFile, Raised::Click, "chkRunFile_Click", &frmEvent::chkRunFile_Click);
    On(IDC_chkEmailTo, Raised::Click, "chkEmailTo_Click", &frmEvent::chkEmailTo_Click);
    On(IDC_chkShared, Raised::Click, "chkShared_Click", &frmEvent::chkShared_Click);
    On(IDC_chkSpecificShare, Raised::Click, "chkSpecificShare_Click", &frmEvent::chkShared_Click);
    On(IDC_cmdPickWav, Raised::Click, "cmdPickWav_Click", &frmEvent::cmdPickWav_Click);
    On(IDC_cmdPickFile, Raised::Click, "cmdPickFile_Click", &frmEvent::cmdPickFile_Click);
    On(IDC_lblMonthlyStartDate, Raised::Click, "lblMonthlyStartDate_Click",
       &frmEvent::lblMonthlyStartDate_Click);
    On(IDC_lblWeeklyStartDate, Raised::Click, "lblWeeklyStartDate_Click",
       &frmEvent::lblWeeklyStartDate_Click);
    On(IDC_lblDailyStartDate, Raised::Click, "lblDailyStartDate_Click", &frmEvent::lblDailyStartDate_Click);
    ListenToRule();
    ListenToPages();
    PrepareNumbers();
}

// Whatever else decides the next dates, so that the preview follows it.
void frmEvent::ListenToRule() {
    for (int day = 0; day < 7; ++day)
        On(IDC_chkDay + day, Raised::Click, "chkDay_Click", &frmEvent::ShowPreview);
    for (const int option : {IDC_optRepeat, IDC_optShowOnce})
        On(option, Raised::Click, "optRepeat_Click", [this] {
            if (!tabs_.IsOnce()) repeats_ = optRepeat.Checked();
            ShowPreview();
        });
    for (const int text :
         {IDC_txtDayOfMonth, IDC_txtMonthlyPeriod, IDC_txtWeeklyPeriod, IDC_txtDailyPeriod, IDC_txtOnceDate})
        On(text, Raised::Change, "txtPeriod_Change", &frmEvent::ShowPreview);
    for (const int list : {IDC_lstMonthNames, IDC_lstDayNumber, IDC_lstDayName, IDC_lstMonths})
        On(list, Raised::Select, "lstMonths_Click", &frmEvent::ShowPreview);
}

// Another tab chosen by a key takes the keyboard along, to its first field.
void frmEvent::ListenToPages() {
    On(IDC_TabStrip1, Raised::Select, "TabStrip1_Click", &frmEvent::TabStrip1_Click);
    const auto turn = [this](int key, std::function<void()> choose) {
        On(key, Raised::Click, "TabStrip1_KeyDown", [this, choose = std::move(choose)] {
            if (mode_ == EditMode::SharingOnly) return;
            choose();
            TabStrip1_Click();
            tabs_.SetFocus();
        });
    };
    turn(IDM_NEXTPAGE, [this] { tabs_.TurnBy(1); });
    turn(IDM_PREVIOUSPAGE, [this] { tabs_.TurnBy(-1); });
    for (int page = 0; page < RecurrenceTabs::kPages; ++page)
        turn(IDM_PAGE + page, [this, page] { tabs_.TurnTo(page); });
    On(IDC_txtOnceDate, Raised::Focus, "txtOnceDate_GotFocus",
       [this] { TextBox(this->window(), IDC_txtOnceDate).HighlightText(); });
    On(IDC_txtOnceDate, Raised::Leave, "txtOnceDate_LostFocus", [this] { tabs_.once.CompleteDay(); });
    On(IDC_cmdOnceDate, Raised::Click, "cmdOnceDate_Click", [this] {
        tabs_.once.PickDay(app_.platform.dialogs);
        ShowPreview();
    });
}

// What is typed into a number takes its place, rather than standing before or behind it.
void frmEvent::PrepareNumbers() {
    const struct {
        int control, least, most;
    } numbers[] = {{IDC_txtDaysWarning, 0, INT16_MAX},
                   {IDC_txtMinutesWarning, 0, kMostMinutesWarning},
                   {IDC_txtFrequency, 1, INT16_MAX},
                   {IDC_txtDayOfMonth, 1, 31},
                   {IDC_txtMonthlyPeriod, 1, tabs_.months.MostPeriod()},
                   {IDC_txtWeeklyPeriod, 1, tabs_.weeks.MostPeriod()},
                   {IDC_txtDailyPeriod, 1, tabs_.days.MostPeriod()}};
    for (const auto& number : numbers)
        On(number.control, Raised::Focus, "txtNumber_GotFocus",
           [this, id = number.control] { TextBox(this->window(), id).HighlightText(); });
    for (const auto& number : numbers)
        window().SetNumberRange(number.control, number.least, number.most);
}

void frmEvent::Form_Load() {
    ErrorTrap trap(errors(), "Form_Load", Name());
    trap([&] { ShowNew(); });
    trap([&] {
        const bool networked = app_.Networked();
        share_.Load(networked, networked ? app_.Folder().Users() : std::vector<std::string>{});
        if (!networked && mode_ == EditMode::Whole) HideSharing(window());
    });
    trap([&] {
        if (!event_.IDCode.empty()) CopyDataToForm();
    });
    repeats_ = event_.Recurring() || tabs_.IsOnce();
    trap([&] { TabStrip1_Click(); });
    trap([&] { SetupRelatedItems(); });
    trap([&] { alarm_.ShowAdvice(); });
    if (mode_ == EditMode::SharingOnly) trap([&] { ConvertToPickShareMode(); });
    trap([&] { entered_ = EnteredIn(window()); });
}

void frmEvent::ShowNew() {
    description_.ShowNew();
    std::vector<std::string> names;
    for (std::int16_t slot = 0; slot < clsLayers::kAll; ++slot)
        names.push_back(app_.layers.Layer(slot));
    cmbLayers.Items(names);
    cmbLayers.Select(clsLayers::kFirstOwn);
    txtDaysWarning.Text("0");
    alarm_.ShowNew(app_.platform.clock.Now());
    const bool hasDay = event_.IDCode.empty() && event_.StartDate() > DateValue();
    tabs_.ShowNew(hasDay ? event_.StartDate() : app_.platform.clock.Today());
}

void frmEvent::CopyDataToForm() {
    ErrorTrap trap(errors(), "CopyDataToForm", Name());
    trap([&] { description_.Show(event_); });
    trap([&] { share_.Show(event_); });
    trap([&] { alarm_.Show(event_, app_.platform.clock.Now()); });
    trap([&] { actions_.Show(event_); });
    trap([&] {
        cmbLayers.Select(event_.Layer());
        txtDaysWarning.Text(std::to_string(event_.DaysWarning()));
    });
    trap([&] { tabs_.Show(event_); });
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
        // One without a text has been asked about.
        if (!fault.Description().empty()) app_.platform.dialogs.Message(fault.Description());
        window().SetFocus(fault.Control());
    } catch (...) {
        TellFailure();
    }
    return false;
}

void frmEvent::CopyFields(clsEvent& event) {
    alarm_.Take(event);
    description_.Take(event);
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
    AskAboutDoubts(event);
    if (!event.Email.empty()) app_.settings.StoreSetting("DefaultEmail", event.Email);
}

void frmEvent::AskAboutDoubts(const clsEvent& event) const {
    for (const Doubt& doubt : DoubtsOf(event, event_, Style(), app_.platform.clock.Now()))
        if (!app_.platform.dialogs.AskYesNo(doubt.question, Dialogs::Default::No))
            throw FieldFault(doubt.ofDay ? tabs_.DayField() : IDC_txtDesc, "");
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
    const int first = description_.Enabled() ? IDC_txtDesc : IDC_cmdSave;
    window().SetFocus(mode_ == EditMode::SharingOnly ? IDC_chkShared : first);
    return window().ShowModal() == kSaved;
}

void frmEvent::Form_Unload() { window().EndModal(kAborted); }

// Whoever saves from the box of the time, by a key, leaves it as well.
void frmEvent::cmdSave_Click() {
    if (inTime_) alarm_.CompleteTime();
    if (CopyFormToData()) window().EndModal(kSaved);
}

void frmEvent::cmdAbort_Click() {
    if (!IsChanged() ||
        app_.platform.dialogs.AskYesNo("Throw away what you have entered?", Dialogs::Default::No))
        window().EndModal(kAborted);
}

bool frmEvent::IsChanged() const {
    try {
        return extras_ != event_.Extras() || EnteredIn(window()) != entered_;
    } catch (const RuntimeError&) {
        return true;  // it cannot be stored, and is entered all the same
    }
}

void frmEvent::chkTimed_Click() {
    SetupRelatedItems();
    txtTime_Change();
}

void frmEvent::txtTime_Change() {
    alarm_.ShowAdvice();
    ShowPreview();
}

void frmEvent::txtTime_LostFocus() {
    inTime_ = false;
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

// An event that is shown once has a tab of its own; the others are there for what repeats, and leave the
// choice.
void frmEvent::TabStrip1_Click() {
    tabs_.ShowFrame();
    const bool repeats = repeats_ && !tabs_.IsOnce();
    optRepeat.Checked(repeats);
    optShowOnce.Checked(!repeats);
    optRepeat.Enabled(!tabs_.IsOnce());
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
    std::string dates;
    std::string warning;
    try {
        const clsEvent event = AsTyped();
        const DateValue now = app_.platform.clock.Now();
        const RulePreview preview(event, now);
        dates = preview.DatesLine(datePattern_, app_.platform.locale.Data());
        warning = preview.Warning();
        if (PassedDay(event, now.DateOnly())) warning = "That day has passed. " + warning;
        lblMore.Text(ExtrasInWords(event, Style()));
    } catch (const FieldFault& fault) {
        // The user is still typing: there is nothing to show yet, and nothing to complain of.
        if (fault.Control() == tabs_.DayField()) dates = tabs_.IsOnce() ? kTypeDay : kPickStart;
    }
    lblPreview.Text(dates);
    lblPreviewWarning.Text(warning);
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
