#include "ui/month/frmMonthView.h"

#include "base/CodePage.h"
#include "base/DateText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/DataWatch.h"
#include "core/Links.h"
#include "forms/WindowFactory.h"
#include "model/MonthList.h"
#include "platform/BusyPointer.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/SystemInfo.h"
#include "storage/VisibleEvents.h"
#include "ui/month/frmDayEvents.h"

#include <algorithm>
#include <utility>

namespace kaz {

namespace {

constexpr int kTodayInterval = 30000;  // milliseconds
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

MonthGrid ThisMonth(const Application& app) {
    const DateValue today = app.platform.clock.Today();
    const CivilDate civil = today.Civil();
    return {civil.month, civil.year, today, false};
}

// With the events that others share, in a network.
MonthGrid FillMonth(const Application& application, int month, int year, std::int16_t category) {
    MonthGrid grid(month, year, application.platform.clock.Today(), application.Networked());
    const VisibleEvents visible(application.settings);
    const auto place = [&](const VisibleEvent& seen) {
        if (clsLayers::Passes(seen.event.Layer(), category)) grid.Place(seen.event, seen.isForeign);
    };
    visible.ForEach(application.events.get(), EventSource::Local, place);
    visible.ForEach(application.shared.get(), EventSource::Shared, place);
    return grid;
}

}  // namespace

frmMonthView::frmMonthView(std::unique_ptr<kaz::Window> window, Application& application,
                           EventCommands::Editor editor, MonthPrinting printing)
    : Form(std::move(window), application.errors, kName),
      app_(application),
      commands_(application, std::move(editor)),
      printing_(std::move(printing)),
      boxes_(application.platform.locale.Data(), ThisMonth(application)),
      month_(static_cast<std::int16_t>(boxes_.Grid().Month())),
      year_(static_cast<std::int16_t>(boxes_.Grid().Year())) {
    On(0, Raised::Load, "Form_Load", &frmMonthView::Form_Load);
    On(0, Raised::Activated, "Form_Activate", &frmMonthView::Form_Activate);
    On(0, Raised::Wheel, "Form_MouseWheel", &frmMonthView::Form_MouseWheel);
    On(0, Raised::CloseBox, "cmd_exit_Click", &frmMonthView::cmd_exit_Click);
    On(IDC_cmd_prevyear, Raised::Click, "cmd_prevyear_Click", &frmMonthView::cmd_prevyear_Click);
    On(IDC_cmd_prevmonth, Raised::Click, "cmd_prevmonth_Click", &frmMonthView::cmd_prevmonth_Click);
    On(IDC_cmd_nextmonth, Raised::Click, "cmd_nextmonth_Click", &frmMonthView::cmd_nextmonth_Click);
    On(IDC_cmd_nextyear, Raised::Click, "cmd_nextyear_Click", &frmMonthView::cmd_nextyear_Click);
    On(IDC_cmdNow, Raised::Click, "cmdNow_Click", &frmMonthView::cmdNow_Click);
    On(IDC_cmbMonthLayers, Raised::Select, "cmbLayers_Click", &frmMonthView::cmbLayers_Click);
    On(IDC_cmdViewEvents, Raised::Click, "cmdViewEvents_Click", &frmMonthView::cmdViewEvents_Click);
    On(IDC_cmd_print, Raised::Click, "cmd_print_Click", &frmMonthView::cmd_print_Click);
    On(IDC_cmdPrintCal, Raised::Click, "cmdPrintCal_Click", &frmMonthView::cmdPrintCal_Click);
    On(IDC_cmd_exit, Raised::Click, "cmd_exit_Click", &frmMonthView::cmd_exit_Click);
    On(IDC_Calbox, Raised::DoubleClick, "Calbox_DblClick", &frmMonthView::Calbox_DblClick);
    On(IDC_Calbox, Raised::LeadsOut, "Calbox_LeadsOut", &frmMonthView::Calbox_LeadsOut);
    On(IDM_REFRESH, Raised::Click, "mnuRefresh_Click", &frmMonthView::mnuRefresh_Click);
    On(IDT_TimerToday, Raised::Timer, "TimerToday_Timer", &frmMonthView::TimerToday_Timer);
}

void frmMonthView::Form_Load() {
    app_.log.LogEvent("Opening monthly calendar");
    FillCategories();
    Calbox().SetDays(&boxes_);
    SelectDay(boxes_.Grid().Today());
    window().SetFocus(IDC_Calbox);
    TimerToday.Start(kTodayInterval);
}

void frmMonthView::FillCategories() {
    loading_ = true;
    std::vector<std::string> names;
    for (std::int16_t slot = 0; slot < clsLayers::kCount; ++slot)
        names.push_back(app_.layers.Layer(slot));
    // One that somebody looks at is not filled for nothing.
    if (cmbLayers.Items() != names) {
        const int selected = cmbLayers.Selected();
        cmbLayers.Items(names);
        cmbLayers.Select(selected < 0 ? clsLayers::kAll : selected);
    }
    loading_ = false;
}

std::int16_t frmMonthView::Category() const {
    const int selected = cmbLayers.Selected();
    return selected < 0 ? clsLayers::kAll : static_cast<std::int16_t>(selected);
}

void frmMonthView::LoadMonth(std::int16_t month, std::int16_t year) {
    if (month < 1 || month > 12 || year < kFirstYear || year > kLastYear || loading_) return;
    ErrorTrap trap(errors(), "LoadMonth", Name());
    loading_ = true;
    month_ = month;
    year_ = year;
    window().SetControlsEnabled(false);
    trap([&] {
        const BusyPointer busy(app_.platform.pump);
        app_.CatchUp();
    });
    trap([&] { ShowMonth(); });
    window().SetControlsEnabled(true);
    loading_ = false;
}

// The selected day stays, as far as the month has it.
void frmMonthView::ShowMonth() {
    const int day = std::max(boxes_.Grid().DayIn(Calbox().Selected()), 1);
    boxes_.Show(FillMonth(app_, month_, year_, Category()), app_.EuropeanDates());
    lblDate.Text(FormatDate(boxes_.Grid().First(), "MMMM YYYY", app_.platform.locale.Data()));
    const std::string category(Trim(app_.layers.Layer(Category())));
    window().SetText(0, "KAZ Monthly View (" + category + ")");
    Calbox().Refresh();
    SelectDay(day);
}

void frmMonthView::SelectDay(int day) {
    if (day > 0) Calbox().Select(boxes_.Grid().BoxOf(std::min(day, boxes_.Grid().Length())));
}

void frmMonthView::StepMonths(int months) {
    const int index = year_ * 12 + month_ - 1 + months;
    LoadMonth(static_cast<std::int16_t>(index % 12 + 1), static_cast<std::int16_t>(index / 12));
}

void frmMonthView::cmdNow_Click() {
    const CivilDate today = app_.platform.clock.Today().Civil();
    LoadMonth(static_cast<std::int16_t>(today.month), static_cast<std::int16_t>(today.year));
    SelectDay(today.day);
}

void frmMonthView::cmbLayers_Click() {
    if (!loading_) LoadMonth(month_, year_);
}

void frmMonthView::Form_MouseWheel(int clicks) { StepMonths(-clicks); }

// What was changed in another window shows when the user comes back to this one.
void frmMonthView::Form_Activate() {
    if (loading_) return;
    FillCategories();
    ShowMonth();
}

void frmMonthView::TimerToday_Timer() {
    const DateValue today = app_.platform.clock.Today();
    const MonthGrid now(month_, year_, today, false);
    if (now.Today() != boxes_.Grid().Today()) ShowMonth();
}

void frmMonthView::Calbox_LeadsOut(int days) {
    const int day = boxes_.Grid().DayIn(Calbox().Selected());
    if (day == 0) return;
    // Beyond the calendar's ends the key has no effect.
    const std::int32_t wanted = boxes_.Grid().DateOf(day).Day() + days;
    if (wanted < kFirstDay || wanted > kLastDay) return;
    const CivilDate target = DateValue(wanted).Civil();
    LoadMonth(static_cast<std::int16_t>(target.month), static_cast<std::int16_t>(target.year));
    SelectDay(target.day);
}

void frmMonthView::Calbox_DblClick(int box) {
    const int day = boxes_.Grid().DayIn(box);
    const int line = Calbox().OpenedLine();
    if (day == 0) return;
    if (line == DayGrid::kWholeDay)
        OpenDay(box);
    else if (line == DayGrid::kNoLine)
        Add(day);
    else
        Edit(day, static_cast<std::size_t>(line));
}

void frmMonthView::OpenDay(int box) {
    const int number = boxes_.Grid().DayIn(box);
    const auto position = [order = boxes_.InOrderOfTime(box)](int row) {
        return order.at(static_cast<std::size_t>(row));
    };
    const auto skip = [this](const EventRef& event, DateValue day) { return commands_.Skip(event, day); };
    const auto move = [this](const EventRef& event, DateValue day) { return commands_.Move(event, day); };
    const DayCommands commands{commands_.NameOfDay(boxes_.Grid().DateOf(number)),
                               [this, number] { return Add(number); },
                               [=, this](int row) { return Edit(number, position(row)); },
                               [=, this](int row) { return Do(skip, number, position(row)); },
                               [=, this](int row) { return Do(move, number, position(row)); }};
    const auto day = std::make_shared<frmDayEvents>(app_.platform.windows.Create(IDD_DAYEVENTS), errors(),
                                                    boxes_.Heading(box), boxes_.Lines(box), commands);
    app_.openWindows.Add(day);
    day->Ask();
    app_.openWindows.Unload(*day);
}

bool frmMonthView::Add(int day) { return Show(commands_.Add(boxes_.Grid().DateOf(day))); }

bool frmMonthView::Edit(int day, std::size_t position) {
    return Do([this](const EventRef& event, DateValue) { return commands_.Edit(event); }, day, position);
}

bool frmMonthView::Do(const DayCommand& command, int day, std::size_t position) {
    const MonthGrid::Entry entry = boxes_.Grid().At(day, position);
    const EventRef event{std::string(entry.code), EventSource::Local,
                         entry.isForeign ? EventType::Foreign : EventType::Own};
    return Show(command(event, boxes_.Grid().DateOf(day)));
}

bool frmMonthView::Show(const std::optional<std::string>& changed) {
    if (!changed) return false;
    app_.mainListIsStale = true;
    app_.dataWatch->Tell();
    ShowMonth();
    return true;
}

void frmMonthView::cmdViewEvents_Click() {
    const std::string file = JoinPath(app_.platform.system.TemporaryFolder(), "KazTempFile.txt");
    try {
        const std::string text = MonthList(boxes_.Grid(), app_.platform.locale.Data()).Text();
        WriteWholeFile(app_.platform.files, file, CodePage::OfSystem().Encode(text));
    } catch (const RuntimeError& error) {
        app_.platform.dialogs.Message("The list could not be written to " + file + ": " +
                                      error.Description());
        return;
    }
    OpenForUser(app_.platform, file);
}

void frmMonthView::Form_Unload() {
    TimerToday.Stop();
    window().Hide();
}

}  // namespace kaz
