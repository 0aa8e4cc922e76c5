#include "ui/main/frmMain.h"

#include "core/DataWatch.h"
#include "platform/Dialogs.h"
#include "platform/MessagePump.h"
#include "ui/list/EventListFill.h"
#include "ui/main/MainToolbar.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

namespace kaz {

namespace {
constexpr int kLastRememberedRow = 65533;
}

frmMain::frmMain(std::unique_ptr<kaz::Window> window, Application& application, MainWindowEvents& owner,
                 MainDialogs dialogs)
    : Form(std::move(window), application.errors, "frmMain"),
      app_(application),
      owner_(owner),
      dialogs_(std::move(dialogs)),
      list_(application.platform.locale),
      commands_(application, dialogs_.editor),
      size_(this->window(), application.settings),
      bar_(this->window(), application.health) {
    On(0, Raised::Load, "Form_Load", &frmMain::Form_Load);
    On(0, Raised::CloseBox, "Form_QueryUnload", &frmMain::Form_QueryUnload);
    On(0, Raised::SessionEnd, "Form_QueryUnload", &frmMain::Form_SessionEnd);
    On(0, Raised::Resumed, "TimerRefresh_Timer", &frmMain::ClockMoved);
    On(0, Raised::ClockChanged, "TimerRefresh_Timer", &frmMain::ClockMoved);
    for (const auto what : {Raised::Resize, Raised::DpiChanged})
        On(0, what, "PlaceHealthBar", [this] { bar_.Place(); });
    for (int button = 0; button < HealthBar::kButtons; ++button)
        On(IDC_cmdHealth + button, Raised::Click, "cmdHealth_Click", [this, button] {
            bar_.Press(button);
            TickSoon();  // what it did to the events is shown at once
        });
    On(IDC_cmdHealthNext, Raised::Click, "cmdHealthNext_Click", [this] { bar_.Next(); });
    On(IDC_ListEvents, Raised::ColumnClick, "ListEvents_ColumnClick", &frmMain::ListEvents_ColumnClick);
    On(IDC_ListEvents, Raised::RightClick, "ListEvents_MouseUp", &frmMain::ListEvents_MouseUp);
    On(IDC_chkExpired, Raised::Click, "chkExpired_Click", &frmMain::chkExpired_Click);
    On(IDC_cmbCategories, Raised::Select, "cmbCategories_Click", &frmMain::cmbCategories_Click);
    On(IDM_FIND, Raised::Click, "mnuFind_Click", &frmMain::mnuFind_Click);
    On(IDM_FINDNEXT, Raised::Click, "mnuFind_Click", &frmMain::mnuFindNext_Click);
    On(IDM_SELECTALL, Raised::Click, "mnuSelectAll_Click", &frmMain::mnuSelectAll_Click);
    On(IDT_TimerRefresh, Raised::Timer, "TimerRefresh_Timer", &frmMain::TimerRefresh_Timer);
    On(IDT_TimerAlarms, Raised::Timer, "TimerAlarms_Timer", &frmMain::TimerAlarms_Timer);
    NameCommands();
    NameTrayEvents();
}

void frmMain::Form_Load() {
    ErrorTrap trap(errors(), "Form_Load", Name());
    loading_ = true;
    trap([&] { window().SetToolbar(IDC_Toolbar1, MainToolbar()); });
    trap([&] {
        ListEvents().SetColumns(EventList::Columns());
        ListEvents().SetRows(&list_);
        ListEvents().ShowSortMark(list_.SortColumn(), list_.Ascending());
    });
    trap([&] { FillCategories(); });
    trap([&] {
        app_.health.OnChange([this] { ShowHealth(); });
        bar_.Show();
    });
    app_.log.LogEvent("Filling events");
    trap([&] { FillEvents(clsLayers::kAll); });
    app_.log.LogEvent("Setting main window width and height");
    trap([&] { size_.Restore(); });
    trap([&] { window().AskForResumes(); });
    loading_ = false;
    TickSoon();
}

void frmMain::ShowHealth() {
    ErrorTrap trap(app_.log, "ShowHealth", Name());
    trap([&] { bar_.Show(); });
    trap([&] { RenewTrayTip(); });
}

void frmMain::FillCategories() {
    std::vector<std::string> names;
    std::vector<std::string> lines{"Copying layer names into main form", "Clearing layers combo"};
    for (std::int16_t slot = 0; slot < clsLayers::kCount; ++slot) {
        names.push_back(app_.layers.Layer(slot));
        lines.push_back("Added " + names.back());
    }
    lines.push_back("Setting index to " + std::to_string(clsLayers::kAll));
    app_.log.LogEvents(lines);
    cmbCategories.Items(names);
    cmbCategories.Select(clsLayers::kAll);
}

void frmMain::FillEvents(std::int16_t category) {
    ErrorTrap trap(errors(), "FillEvents", Name());
    // Kept on purpose: the place in the list is remembered, not the event; beyond this bound it is the first
    // row.
    const int remembered = SelectedRow();
    // Filled aside, so that whatever is painted meanwhile still finds the old rows whole.
    EventListFill fill(app_);
    trap([&] { fill.AddLocal(category); });
    trap([&] { fill.AddShared(category); });
    trap([&] {
        if (chkExpired.Checked()) fill.AddExpired(category);
    });
    trap([&] { list_.Show(fill.TakeRows()); });
    SetColours();
    trap([&] { RenewTrayTip(); });
    trap([&] { WaitForAlarms(); });
    ListEvents().ClearSelection();
    app_.log.LogEvent("Selecting current event");
    if (list_.RowCount() == 0) return;
    const bool there = remembered >= 0 && remembered <= kLastRememberedRow && remembered < list_.RowCount();
    ListEvents().Select(there ? remembered : 0);
}

void frmMain::SetColours() { ListEvents().Refresh(); }

std::int16_t frmMain::Category() const {
    const int selected = cmbCategories.Selected();
    return selected < 0 ? clsLayers::kAll : static_cast<std::int16_t>(selected);
}

int frmMain::SelectedRow() const {
    const std::vector<int> rows = ListEvents().Selection();
    return rows.empty() ? -1 : rows.front();
}

void frmMain::chkExpired_Click() { FillEvents(Category()); }

void frmMain::cmbCategories_Click() {
    if (!loading_) FillEvents(Category());
}

void frmMain::ListEvents_ColumnClick(int column) {
    // The list on the screen marks rows by their place only, so the marks have to move along with the events.
    const std::vector<int> marked = ListEvents().Selection();
    const int current = ListEvents().Current();
    std::vector<bool> isMarked(static_cast<std::size_t>(list_.RowCount()));
    for (const int row : marked)
        isMarked.at(list_.Identity(row)) = true;
    const auto currentIdentity = current < 0 ? 0 : list_.Identity(current);

    list_.SortBy(column);
    ListEvents().ShowSortMark(list_.SortColumn(), list_.Ascending());
    SetColours();
    if (marked.empty()) return;
    std::vector<int> moved;
    int newCurrent = -1;
    for (int row = 0; row < list_.RowCount(); ++row) {
        if (!isMarked[list_.Identity(row)]) continue;
        moved.push_back(row);
        if (current >= 0 && list_.Identity(row) == currentIdentity) newCurrent = row;
    }
    ListEvents().SetSelection(moved);
    if (newCurrent >= 0) ListEvents().Select(newCurrent);
}

int frmMain::CommandRow() const {
    const std::vector<int> rows = ListEvents().Selection();
    const int current = ListEvents().Current();
    const bool isSelected = std::find(rows.begin(), rows.end(), current) != rows.end();
    if (isSelected) return current;
    return rows.empty() ? -1 : rows.front();
}

std::optional<EventRef> frmMain::CommandEvent() const {
    const int row = CommandRow();
    return row < 0 ? std::nullopt : std::optional(list_.RefOf(row));
}

std::vector<EventRef> frmMain::SelectedEvents() const {
    std::vector<EventRef> events;
    for (const int row : ListEvents().Selection())
        events.push_back(list_.RefOf(row));
    return events;
}

void frmMain::Refill(const std::optional<std::string>& code) {
    if (unloaded_) return;
    app_.dataWatch->Tell();
    if (IsHeldUp()) return;
    FillEvents(Category());
    owner_.fMain_Rescan();
    const auto row = code ? list_.RowOf(*code, EventSource::Local) : std::nullopt;
    if (!row) return;
    ListEvents().ClearSelection();
    ListEvents().Select(*row);
}

// A list that is filled behind a dialog would change under it.
bool frmMain::IsHeldUp() {
    app_.mainListIsStale = pauses_ > 0;
    if (app_.mainListIsStale) RenewTrayTip();
    return app_.mainListIsStale;
}

void frmMain::RefillKeepingSelection() {
    if (unloaded_ || IsHeldUp()) return;
    std::vector<EventList::Key> selected;
    for (const int row : ListEvents().Selection())
        selected.push_back(list_.KeyOf(row));
    const int row = CommandRow();
    const std::optional<EventList::Key> current = row < 0 ? std::nullopt : std::optional(list_.KeyOf(row));
    FillEvents(Category());
    SelectOnly(selected, current);
    owner_.fMain_Rescan();
}

// Events that have gone are left out; without any, the selection is what it was.
void frmMain::SelectOnly(const std::vector<EventList::Key>& events,
                         const std::optional<EventList::Key>& current) {
    const std::set<EventList::Key> wanted(events.begin(), events.end());
    std::vector<int> rows;
    int currentRow = -1;
    for (int row = 0; !wanted.empty() && row < list_.RowCount(); ++row) {
        const EventList::Key key = list_.KeyOf(row);
        if (!wanted.contains(key)) continue;
        rows.push_back(row);
        if (key == current) currentRow = row;
    }
    if (rows.empty()) return;
    ListEvents().SetSelection(rows);
    ListEvents().Select(currentRow < 0 ? rows.front() : currentRow);
}

int frmMain::NeighbourOfSelection() const {
    const std::vector<int> rows = ListEvents().Selection();
    if (rows.empty()) return -1;
    const std::set<int> selected(rows.begin(), rows.end());
    const int first = *selected.begin();
    for (int row = first; row < list_.RowCount(); ++row)
        if (!selected.contains(row)) return row;
    return first - 1;
}

void frmMain::ListEvents_MouseUp() {
    if (SelectedRow() >= 0) window().ShowMenu(IDR_MENU_LIST);
}

void frmMain::mnuFind_Click() {
    if (AskForTerm()) Search(0);
}

void frmMain::mnuFindNext_Click() {
    if (!searchTerm_.empty() || AskForTerm()) Search(SelectedRow() + 1);
}

bool frmMain::AskForTerm() {
    const auto term = app_.platform.dialogs.InputBox("Search", "Enter search term", searchTerm_);
    if (!term || term->empty()) return false;
    searchTerm_ = *term;
    return true;
}

void frmMain::Search(int from) {
    if (const auto row = list_.Find(searchTerm_, from)) {
        ListEvents().ClearSelection();
        ListEvents().Select(*row);
        return;
    }
    const std::string further = from > 0 ? "further " : "";
    app_.platform.dialogs.Message("No " + further + "event contains \"" + searchTerm_ + "\".");
}

void frmMain::mnuSelectAll_Click() {
    std::vector<int> rows(static_cast<std::size_t>(list_.RowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    ListEvents().SetSelection(rows);
}

void frmMain::ShowWindow() { window().Show(Activation::TakeFocus); }

void frmMain::BringForward() {
    // Kept on purpose: a maximised window becomes a normal one as well.
    window().SetState(WindowState::Normal);
    window().Show(Activation::TakeFocus);
}

void frmMain::HideWindow() { window().Hide(); }

void frmMain::Form_QueryUnload(int how) {
    // Pressed once too often after a menu or a search, it must not take the list away.
    if (how == kByEscape) return;
    window().Hide();
    app_.platform.pump.ProcessPending();
    owner_.fMain_WindowClosed();
}

void frmMain::Form_SessionEnd() {
    size_.Save();
    // Nothing is asked, since the system waits only for a few seconds.
    app_.settings.SaveSettings(app_.settingsFileName, cSHAREDSettings::Failure::Quiet);
    if (!app_.dataWatch->IsAllSeen()) {
        ErrorTrap trap(app_.log, "Form_SessionEnd", Name());
        trap([&] { window().SayWhySaving("KAZ is saving your events"); });
        trap([&] { app_.dataWatch->Rescue(); });
        trap([&] { window().SayWhySaving(""); });
    }
    app_.runMark.End();
}

void frmMain::Unload() { app_.openWindows.Unload(*this); }

void frmMain::Form_Unload() {
    unloaded_ = true;
    app_.health.OnChange({});
    TimerRefresh.Stop();
    TimerAlarms.Stop();
    window().HideTrayIcon();
    size_.Save();
    window().Hide();
}

}  // namespace kaz
