#include "ui/main/frmMain.h"

#include "base/Text.h"
#include "commands/LineCommand.h"
#include "core/DataWatch.h"
#include "core/Links.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessagePump.h"
#include "support/Names.h"
#include "ui/fields/FieldFault.h"
#include "ui/fields/FieldReading.h"
#include "ui/list/EmptyList.h"
#include "ui/list/EventListFill.h"
#include "ui/main/MainToolbar.h"
#include "ui/words/frmWords.h"

#include <utility>
#include <vector>

namespace kaz {

namespace {
constexpr std::string_view kSort = "ListSort";
constexpr std::string_view kShowExpired = "ShowExpired";
}  // namespace

frmMain::frmMain(std::unique_ptr<kaz::Window> window, Application& application, MainWindowEvents& owner,
                 MainDialogs dialogs)
    : Form(std::move(window), application.errors, "frmMain"),
      app_(application),
      owner_(owner),
      dialogs_(std::move(dialogs)),
      list_(this->window(), IDC_ListEvents, application.platform.locale),
      columns_(this->window(), IDC_ListEvents, application.settings),
      size_(this->window(), application.settings),
      bar_(this->window(), application.health),
      tray_(
          this->window(), application, [this] { BringForward(); },
          [this] {
              reminders_.NameCommands();
              this->window().ShowMenu(IDR_MENU_TRAY);
          }),
      clock_(application, {this->window(), IDT_TimerRefresh}, {this->window(), IDT_TimerAlarms},
             {[this] { FillEvents(Category()); }, [this] { RefillKeepingSelection(); },
              [this] {
                  // The window has been painted and the reminders are up: while the user logs on, the shell
                  // can take seconds to answer.
                  if (!tray_.IsShown()) tray_.Show();
              }}),
      events_(this->window(), application, list_, clock_, dialogs_.editor,
              {[this](const std::optional<std::string>& code) { return Refill(code); },
               [this] { FillCategories(); }}),
      reminders_(this->window(), application, clock_),
      data_(application),
      words_(this->window(), application, [this](const std::string& code) { Refill(code); }),
      wordsKey_(this->window(), application, [this] { EditOptions(); }) {
    On(0, Raised::Load, "Form_Load", &frmMain::Form_Load);
    On(0, Raised::CloseBox, "Form_QueryUnload", &frmMain::Form_QueryUnload);
    On(0, Raised::SessionEnd, "Form_QueryUnload", &frmMain::Form_SessionEnd);
    for (const auto what : {Raised::Resumed, Raised::ClockChanged})
        On(0, what, "TimerRefresh_Timer", [this] { clock_.ClockMoved(); });
    // What was changed in another window shows when the user comes back to this one.
    On(0, Raised::Activated, "Form_Activate", [this] {
        if (app_.mainListIsStale) clock_.TickSoon();
    });
    for (const auto what : {Raised::Resize, Raised::DpiChanged})
        On(0, what, "PlaceHealthBar", [this] { bar_.Place(); });
    for (int button = 0; button < HealthBar::kButtons; ++button)
        On(IDC_cmdHealth + button, Raised::Click, "cmdHealth_Click", [this, button] {
            bar_.Press(button);
            clock_.TickSoon();  // what it did to the events is shown at once
        });
    On(IDC_cmdHealthNext, Raised::Click, "cmdHealthNext_Click", [this] { bar_.Next(); });
    On(IDC_ListEvents, Raised::ColumnClick, "ListEvents_ColumnClick", &frmMain::ListEvents_ColumnClick);
    On(IDC_ListEvents, Raised::HeaderMenu, "ListEvents_HeaderMenu", [this] {
        columns_.MarkCommands();
        this->window().ShowMenu(IDR_MENU_COLUMNS);
    });
    On(IDM_COLUMNS, Raised::Click, "ListEvents_HeaderMenu", [this] {
        columns_.MarkCommands();
        this->window().ShowMenuUnder(IDC_Toolbar1, IDM_OPTIONS, IDR_MENU_COLUMNS);
    });
    for (int column = 0; column < kEventColumns; ++column)
        On(IDM_COLUMN + column, Raised::Click, "mnuColumn_Click",
           [this, column] { columns_.Toggle(column); });
    On(IDM_COLUMNSRESET, Raised::Click, "mnuColumn_Click", [this] { columns_.Reset(); });
    On(IDC_ListEvents, Raised::RightClick, "ListEvents_MouseUp", &frmMain::ListEvents_MouseUp);
    On(IDC_ListEvents, Raised::Select, "ListEvents_ItemClick", [this] { events_.Rows().ShowInToolbar(); });
    On(IDM_COPY, Raised::Click, "mnuCopy_Click", [this] { events_.Copy(); });
    On(IDC_chkExpired, Raised::Click, "chkExpired_Click", &frmMain::chkExpired_Click);
    On(IDC_cmbCategories, Raised::Select, "cmbCategories_Click", &frmMain::cmbCategories_Click);
    On(IDM_FIND, Raised::Click, "mnuFind_Click", &frmMain::mnuFind_Click);
    On(IDM_FINDNEXT, Raised::Click, "mnuFind_Click", &frmMain::mnuFindNext_Click);
    On(IDM_SELECTALL, Raised::Click, "mnuSelectAll_Click", [this] { list_.SelectAll(); });
    On(IDT_TimerRefresh, Raised::Timer, "TimerRefresh_Timer", [this] { clock_.Tick(); });
    On(IDT_TimerAlarms, Raised::Timer, "TimerAlarms_Timer", [this] { clock_.TickForAlarms(); });
    On(IDM_SHOWAGAIN, Raised::Click, "mnuShowAgain_Click", [this] { reminders_.ShowAgain(); });
    On(IDM_SHOWMISSED, Raised::Click, "mnuShowMissed_Click", [this] { reminders_.ShowMissed(); });
    On(IDM_SLEEPING, Raised::Click, "mnuSleeping_Click", [this] { reminders_.ShowSleeping(); });
    On(IDM_FORECAST, Raised::Click, "mnuForecast_Click", [this] { dialogs_.forecast(); });
    On(IDM_TESTREMINDERS, Raised::Click, "mnuTestReminders_Click", [this] { dialogs_.testReminders(); });
    On(IDM_QUIET, Raised::Click, "mnuQuiet_Click", [this] { reminders_.ChangeQuiet(); });
    On(0, Raised::TrayMouse, "Form_MouseMove", &frmMain::Form_MouseMove);
    On(0, Raised::TrayLost, "ShowIconInTray", [this] { tray_.ShowAgain(); });
    NameCommands();
    ListenToWords();
    list_.OnSelection([this] { events_.Rows().ShowInToolbar(); });
}

void frmMain::ListenToWords() {
    On(IDM_WORDS, Raised::Click, "mnuWords_Click", [this] { words_.TakeKeyboard(); });
    On(IDC_txtWords, Raised::Change, "txtWords_Change", [this] { words_.ShowUnderstood(); });
    On(IDC_txtWords, Raised::Enter, "txtWords_Enter", [this] { words_.Enter(); });
    On(IDM_SEARCH, Raised::Click, "mnuSearch_Click", [this] {
        txtSearch.SetFocus();
        txtSearch.HighlightText();
    });
    On(IDC_txtSearch, Raised::Change, "txtSearch_Change", &frmMain::txtSearch_Change);
    On(IDC_txtSearch, Raised::Enter, "txtSearch_Enter", [this] { window().SetFocus(IDC_ListEvents); });
    On(IDM_NEWINWORDS, Raised::Click, "mnuNewInWords_Click", &frmMain::OpenWords);
    On(0, Raised::HotKey, "mnuNewInWords_Click", &frmMain::OpenWords);
}

void frmMain::Form_Load() {
    ErrorTrap trap(errors(), "Form_Load", Name());
    loading_ = true;
    trap([&] { window().SetToolbar(IDC_Toolbar1, MainToolbar()); });
    trap([&] { list_.Prepare(app_.settings.TextOr(kSort, "")); });
    trap([&] { columns_.Restore(); });
    trap([&] { chkExpired.Checked(app_.settings.Flag(kShowExpired)); });
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
    trap([&] { words_.Prepare(); });
    trap([&] { wordsKey_.Apply(); });
    ReminderRequests& requests = app_.reminderWindows.requests;
    requests.edit = [this](const OccurrenceRef& of) {
        if (!IsBlocked()) return events_.EditOccurrence(of);
        BringForward();
        return false;
    };
    requests.answered = [this] { clock_.TickSoon(); };
    loading_ = false;
    clock_.TickSoon();
}

void frmMain::ShowHealth() {
    ErrorTrap trap(app_.log, "ShowHealth", Name());
    trap([&] { bar_.Show(); });
    trap([&] { tray_.Renew(); });
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
    const int place = list_.SelectedRow();
    // Filled aside, so that whatever is painted meanwhile still finds the old rows whole.
    EventListFill fill(app_);
    trap([&] { fill.AddLocal(category); });
    trap([&] { fill.AddShared(category); });
    trap([&] {
        if (chkExpired.Checked()) fill.AddExpired(category);
    });
    trap([&] { list_.Show(fill.TakeRows()); });
    SetColours();
    trap([&] { TellWhyEmpty(); });
    trap([&] { tray_.Renew(); });
    trap([&] { clock_.WaitForAlarms(); });
    app_.log.LogEvent("Selecting current event");
    list_.SelectPlace(place);
}

// The label is invisible: it is what a screen reader calls the list.
void frmMain::TellWhyEmpty() {
    const std::string text = WhyEmpty(app_, Category(), !window().Text(IDC_txtSearch).empty());
    list_.SayWhenEmpty(text);
    window().SetText(IDC_lblEvents, list_.IsEmpty() ? "Events: " + text : "Events");
}

std::int16_t frmMain::Category() const {
    const int selected = cmbCategories.Selected();
    return selected < 0 ? clsLayers::kAll : static_cast<std::int16_t>(selected);
}

void frmMain::chkExpired_Click() { FillEvents(Category()); }

void frmMain::cmbCategories_Click() {
    if (!loading_) FillEvents(Category());
}

bool frmMain::Refill(const std::optional<std::string>& code) {
    if (unloaded_) return false;
    app_.dataWatch->Tell();
    if (IsHeldUp()) return true;
    FillEvents(Category());
    owner_.fMain_Rescan();
    if (unloaded_) return false;
    if (code) list_.SelectOwn(*code);
    return true;
}

// A list that is filled behind a dialog would change under it.
bool frmMain::IsHeldUp() {
    app_.mainListIsStale = clock_.IsPaused();
    if (app_.mainListIsStale) tray_.Renew();
    return app_.mainListIsStale;
}

void frmMain::RefillKeepingSelection() {
    if (unloaded_ || IsHeldUp()) return;
    const EventListView::Kept kept = list_.Keep();
    FillEvents(Category());
    list_.SelectAgain(kept);
    owner_.fMain_Rescan();
}

void frmMain::ListEvents_MouseUp() {
    if (list_.SelectedRow() < 0) return;
    events_.NameSteps();
    events_.Rows().NameInMenu();
    window().ShowMenu(IDR_MENU_LIST);
}

void frmMain::mnuFind_Click() {
    if (AskForTerm()) Search(0);
}

void frmMain::mnuFindNext_Click() {
    if (!searchTerm_.empty() || AskForTerm()) Search(list_.SelectedRow() + 1);
}

bool frmMain::AskForTerm() {
    const auto term = app_.platform.dialogs.InputBox("Search", "Enter search term", searchTerm_);
    if (!term || term->empty()) return false;
    searchTerm_ = *term;
    return true;
}

void frmMain::Search(int from) {
    if (list_.Find(searchTerm_, from)) return;
    const std::string further = from > 0 ? "further " : "";
    app_.platform.dialogs.Message("No " + further + "event contains \"" + searchTerm_ + "\".");
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
    if (how == kByEscape) return EscapeFromBox();
    window().Hide();
    app_.platform.pump.ProcessPending();
    owner_.fMain_WindowClosed();
    // Not where the host has taken this for the end.
    if (!unloaded_) tray_.SayWhereItIs();
}

void frmMain::EscapeFromBox() {
    const bool isSearch = window().Focused() == IDC_txtSearch;
    if (isSearch && !window().Text(IDC_txtSearch).empty()) {
        txtSearch.Text("");
        txtSearch_Change();
    } else if (isSearch || (words_.HasKeyboard() && !words_.Empty())) {
        window().SetFocus(IDC_ListEvents);
    }
}

void frmMain::txtSearch_Change() {
    try {
        list_.Narrow(TypedText(txtSearch));
    } catch (const FieldFault&) {
        list_.Narrow("\xFF\xFF");  // no event has a letter that cannot be stored
    }
    TellWhyEmpty();
}

LineAnswer frmMain::AddInWords(const std::string& line) {
    const LineCommand::Added added = LineCommand(app_).Add(line);
    if (added.code) Refill(added.code);
    return {added.code.has_value(), added.told};
}

void frmMain::OpenWords() {
    if (IsBlocked())
        BringForward();
    else
        dialogs_.words([this](const std::string& code) { Refill(code); });
}

void frmMain::SaveArrangement() {
    size_.Save();
    columns_.Save();
    cSHAREDSettings& settings = app_.settings;
    if (list_.SortText() != "0 up" || settings.IsSettingPresent(kSort))
        settings.StoreSetting(kSort, list_.SortText());
    if (chkExpired.Checked() != settings.Flag(kShowExpired))
        settings.StoreSetting(kShowExpired, chkExpired.Checked());
}

void frmMain::Form_SessionEnd() {
    SaveArrangement();
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
    app_.reminderWindows.requests.edit = ReminderRequests().edit;
    app_.reminderWindows.requests.answered = ReminderRequests().answered;
    app_.health.OnChange({});
    clock_.Stop();
    tray_.Hide();
    SaveArrangement();
    if (const auto words = app_.openWindows.Find(frmWords::kName)) app_.openWindows.Unload(*words);
    window().Hide();
}

void frmMain::NameCommands() {
    const struct {
        int command;
        const char* procedure;
        std::function<void()> handler;
    } commands[] = {
        {IDM_EXIT, "Toolbar1_ButtonClick", [this] { cmdExit_Click(); }},
        {IDM_ADD, "Toolbar1_ButtonClick", [this] { events_.Add(); }},
        {IDM_EDIT, "EditEvent", [this] { events_.Edit(); }},
        {IDM_PUSH, "PushEvent", [this] { events_.Push(); }},
        {IDM_SKIP, "SkipDay", [this] { events_.Skip(); }},
        {IDM_MOVEDAY, "MoveDay", [this] { events_.Move(); }},
        {IDM_DELETE, "DeleteEvents", [this] { events_.Delete(); }},
        {IDM_TASKLIST, "Toolbar1_ButtonClick", [this] { dialogs_.tasks(); }},
        {IDM_MONTHVIEW, "Toolbar1_ButtonClick", [this] { cmdMonthView_Click(); }},
        {IDM_EDITLAYERS, "Toolbar1_ButtonClick", [this] { cmdEditLayers_Click(); }},
        {IDM_REMINDERSMENU, "Toolbar1_ButtonClick", [this] { cmdReminders_Click(); }},
        {IDM_OPTIONS, "Toolbar1_ButtonClick", [this] { cmdOptions_Click(); }},
        {IDM_REFRESH, "Toolbar1_ButtonClick", [this] { FillEvents(Category()); }},
        {IDM_RESTORE, "Restore_Click", [this] { mnuRestore_Click(); }},
        {IDM_CHANGES, "Changes_Click", [this] { data_.ShowChanges(); }},
        {IDM_UNDO, "Undo_Click", [this] { events_.Undo(); }},
        {IDM_REDO, "Redo_Click", [this] { events_.Redo(); }},
        {IDM_LOG, "ShowLog", [this] { data_.ShowLog(); }},
        {IDM_HELPMENU, "Toolbar1_ButtonClick", [this] { cmdHelp_Click(); }},
        {IDM_SHAREWITH, "mnuShareWith_Click", [this] { events_.ShareWith(); }},
        {IDM_SETTINGS, "mnuSettings_Click", [this] { EditOptions(); }},
        {IDM_BACKUP, "mnuBackup_Click", [this] { data_.BackUp(); }},
        {IDM_VIEWBACKUPS, "mnuViewBackups_Click", [this] { data_.ViewBackups(); }},
        {IDM_CHECKFORUPDATE, "mnuCheckForUpdate_Click", [this] { ShowUpdatePage(app_.platform); }},
        {IDM_HELP, "mnuHelp_Click", [this] { ShowHelp(app_.platform); }},
        {IDM_ABOUT, "mnuAbout_Click", [this] { dialogs_.about(); }},
        {IDM_SHOW, "mnuShow_Click", [this] { ShowWindow(); }},
        {IDM_QUIT, "mnuExit_Click", [this] { mnuExit_Click(); }},
    };
    for (const auto& entry : commands)
        On(entry.command, Raised::Click, entry.procedure, entry.handler);
    On(IDC_ListEvents, Raised::DoubleClick, "ListEvents_DblClick", [this] { events_.Edit(); });
}

void frmMain::cmdExit_Click() {
    if (MayEnd()) owner_.fMain_ShutDownKAZ();
}

void frmMain::cmdMonthView_Click() {
    const CivilDate today = app_.platform.clock.Today().Civil();
    dialogs_.month(today.month, today.year);
}

void frmMain::cmdEditLayers_Click() {
    dialogs_.categories();
    if (unloaded_) return;
    app_.dataWatch->Tell();
    FillCategories();
    FillEvents(Category());
}

void frmMain::cmdReminders_Click() {
    reminders_.NameCommands();
    window().ShowMenuUnder(IDC_Toolbar1, IDM_REMINDERSMENU, IDR_MENU_REMINDERS);
}

void frmMain::cmdOptions_Click() {
    events_.NameSteps();
    window().ShowMenuUnder(IDC_Toolbar1, IDM_OPTIONS, IDR_MENU_SETTINGS);
}

void frmMain::cmdHelp_Click() { window().ShowMenuUnder(IDC_Toolbar1, IDM_HELPMENU, IDR_MENU_HELP); }

void frmMain::EditOptions() {
    {
        const ReminderClock::Pause pause(clock_);
        dialogs_.options();
        if (!unloaded_) app_.ReopenDatabases();
    }
    if (unloaded_) return;
    wordsKey_.Apply();
    Refill(std::nullopt);
}

void frmMain::mnuRestore_Click() {
    {
        const ReminderClock::Pause pause(clock_);
        dialogs_.restore();
    }
    if (!unloaded_) Refill(std::nullopt);
}

// Kept on purpose: this ends the program by itself, while the toolbar's button only asks the host to do so.
void frmMain::mnuExit_Click() {
    // What the user is just typing in a dialog would be lost.
    if (IsBlocked())
        BringForward();
    else if (MayEnd())
        app_.EndProgram();
}

bool frmMain::MayEnd() {
    DataWatch& watch = *app_.dataWatch;
    if (watch.IsAllSaved()) return true;
    watch.TryAgain();
    while (!unloaded_ && !watch.IsAllSaved()) {
        switch (dialogs_.unsaved(watch.Sentence())) {
        case UnsavedAnswer::TryAgain: watch.TryAgain(); break;
        case UnsavedAnswer::SaveCopy:
            if (!watch.SaveCopy()) break;
            // The copy is the user's to keep; the next start takes over what it holds all the same.
            return true;
        case UnsavedAnswer::Lose: watch.GiveUp(); return true;
        case UnsavedAnswer::Cancel: return false;
        }
    }
    return !unloaded_;
}

}  // namespace kaz
