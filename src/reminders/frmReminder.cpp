#include "reminders/frmReminder.h"

#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/MessagePump.h"
#include "storage/clsSounds.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kaz {

namespace {
constexpr int kAtOnce = 1;  // milliseconds
constexpr int kFirstShowing = 2000;
constexpr int kComeBack = 30000;
constexpr int kSleepTick = 1000;
constexpr int kSleepDigits = 4;
constexpr double kLongestSleep = 9999;  // minutes

bool IsToComeAgain(const Outcomes& outcomes, const OccurrenceRef& occurrence, DateValue now) {
    const std::vector<Outcomes::Asleep> asleep = outcomes.AsleepOf(occurrence.key);
    return std::any_of(asleep.begin(), asleep.end(), [&](const Outcomes::Asleep& one) {
        return one.occurrence.day == occurrence.day && one.until > now;
    });
}

}  // namespace

frmReminder::frmReminder(std::unique_ptr<Window> window, const ReminderServices& services,
                         ReminderRequests& requests, std::function<void(const OccurrenceRef&)> left)
    : Form(std::move(window), services.errors, "frmReminder"),
      services_(services),
      requests_(requests),
      left_(std::move(left)),
      again_(this->window(), services),
      lstReminders_(this->window().Report(IDC_lstReminders)) {
    On(IDT_Timer1, Raised::Timer, "Timer1_Timer", &frmReminder::Timer1_Timer);
    On(IDC_cmdRemindMe, Raised::Click, "cmdRemindMe_Click", &frmReminder::cmdRemindMe_Click);
    On(IDC_cmdContinue, Raised::Click, "cmdContinue_Click", &frmReminder::cmdContinue_Click);
    On(0, Raised::CloseBox, "cmdContinue_Click", &frmReminder::cmdContinue_Click);
    On(IDC_lstReminders, Raised::Select, "lstReminders_Click", &frmReminder::lstReminders_Click);
    On(IDC_lstReminders, Raised::DoubleClick, "lstReminders_DblClick", &frmReminder::lstReminders_DblClick);
    On(IDC_cmdLineDone, Raised::Click, "cmdDone_Click", &frmReminder::cmdDone_Click);
    On(IDC_cmdLineAgain, Raised::Click, "cmdAgain_Click", &frmReminder::cmdAgain_Click);
    On(IDC_cmdLineLast, Raised::Click, "cmdLast_Click", &frmReminder::cmdLast_Click);
    for (const int command : AgainMenu::kCommands)
        On(command, Raised::Click, "mnuAgain_Click", [this, command] { mnuAgain_Click(command); });
    lstReminders_.SetColumns({{"Reminder", 120, true}, {"Time", 110}});
    lstReminders_.SetRows(&rows_);
    txtSleep.MaxLength(kSleepDigits);
}

void frmReminder::Heading(const std::string& text) {
    lblHeading.Text(text);
    window().SetText(0, text);
    if (!armed_) Wake();
}

void frmReminder::AddToList(const std::vector<ReminderLine>& lines) {
    lines_.Add(lines);
    FillList();
}

void frmReminder::ClearList() {
    lines_.Clear();
    FillList();
}

void frmReminder::ReplaceList(const std::vector<ReminderLine>& lines) {
    lines_.Clear();
    AddToList(lines);
}

void frmReminder::FillList() { Show(Selected()); }

// What was selected stays selected, wherever it stands now.
void frmReminder::Show(const std::vector<ReminderLine>& selected) {
    std::vector<TextRows::Row> rows;
    std::vector<int> again;
    shown_ = lines_.All();
    for (const ReminderLine& line : shown_) {
        if (std::find(selected.begin(), selected.end(), line) != selected.end())
            again.push_back(static_cast<int>(rows.size()));
        rows.push_back({{OneLine(line.text), TimeOf(line)}});
    }
    rows_.rows = std::move(rows);
    lstReminders_.Refresh();
    lstReminders_.SetSelection(again);
    if (again.empty()) lstReminders_.Select(0);
    ShowButtons();
}

std::string frmReminder::TimeOf(const ReminderLine& line) const {
    const LocaleData& locale = services_.platform.locale.Data();
    std::string text;
    const bool isOther = line.occurrence && line.occurrence->day != services_.platform.clock.Today();
    if (isOther && !line.tellsDay) text = FormatDate(line.occurrence->day, "DDD D MMM", locale);
    if (line.time) text += (text.empty() ? "" : " ") + FormatDate(*line.time, "HH:NN", locale);
    return text;
}

void frmReminder::Wake() { Arm(kFirstShowing); }

void frmReminder::Arm(int milliseconds) {
    armed_ = true;
    sleeping_ = false;
    Timer1.Start(milliseconds);
}

void frmReminder::ShowAsTest(const std::string& heading) {
    lblHeading.Text(heading);
    window().SetText(0, heading);
    window().Show(Activation::KeepFocus);
}

void frmReminder::ShowNow() {
    Arm(kAtOnce);
    window().Show(Activation::TakeFocus);
}

void frmReminder::ShowOnTop() {
    Arm(kAtOnce);
    window().SetTopMost(true);
    if (!MustWait() && !window().IsVisible()) window().Show(Activation::KeepFocus);
}

// Whoever is disturbed anyway sees at once what waited, too.
bool frmReminder::MustWait() {
    const auto breaks = [](const ReminderLine& line) { return line.breaksQuiet; };
    waits_ = std::ranges::none_of(lines_.All(), breaks) && services_.quiet.IsOn();
    return waits_;
}

void frmReminder::QuietEnded() {
    if (std::exchange(waits_, false) && !sleeping_) Arm(kAtOnce);
}

void frmReminder::Form_Unload() {
    // The window can outlive its closing for as long as a handler runs, and must not come back meanwhile.
    closed_ = true;
    Timer1.Stop();
    if (window().IsVisible()) window().Hide();
}

void frmReminder::Timer1_Timer() {
    if (sleeping_) {
        CountSleep();
        return;
    }
    if (MustWait()) {
        Timer1.Start(kComeBack);
        return;
    }
    if (!ComeToFront()) return;
    Timer1.Start(kComeBack);
    if (PlaySound) PlayItsSound();
}

// Ticks get lost while the computer sleeps, and the clock can be set back: what comes first counts.
bool frmReminder::SleepIsOver() {
    if (services_.platform.clock.Now() >= sleepEnd_) return true;
    if (++seconds_ < 60) return false;
    seconds_ = 0;
    return ++minutes_ >= sleepMinutes_;
}

void frmReminder::CountSleep() {
    if (!SleepIsOver() || MustWait()) return;
    // Kept on purpose: after a sleep the window comes back once. The timer stays off and the window counts as
    // sleeping, so that only another click, or something new to list, makes it come to the front again.
    Timer1.Stop();
    if (ComeToFront() && PlaySound) PlayItsSound();
}

// False when the user closed the window, or put it to sleep, just as it appeared.
bool frmReminder::ComeToFront() {
    if (!window().IsVisible()) window().Show(Activation::KeepFocus);
    services_.platform.pump.ProcessPending();
    if (!window().IsVisible()) return false;
    window().BringToFront();
    return true;
}

void frmReminder::cmdRemindMe_Click() {
    const double typed = std::clamp(LeadingNumber(txtSleep.Text()), 0.0, kLongestSleep);
    sleeping_ = true;
    sleepMinutes_ = RoundToInt16(typed);
    // No sleep is shorter than the first full minute.
    sleepEnd_ = services_.platform.clock.Now().PlusMinutes(std::max(sleepMinutes_, 1));
    seconds_ = 0;
    minutes_ = 0;
    Timer1.Start(kSleepTick);
    window().Hide();
    services_.platform.pump.ProcessPending();
}

void frmReminder::cmdContinue_Click() {
    window().Hide();
    services_.platform.pump.ProcessPending();
    std::vector<ReminderLine> read = lines_.All();
    services_.openWindows.Unload(*this);
    // What he has put off in another window is not answered in this one.
    std::erase_if(read, [&](const ReminderLine& line) {
        return line.occurrence &&
               IsToComeAgain(services_.outcomes, *line.occurrence, services_.platform.clock.Now());
    });
    Answer(read);
}

// What a person has closed is answered, but for what is still to come: the alarm of an event of today.
void frmReminder::Answer(const std::vector<ReminderLine>& lines) {
    const DateValue now = services_.platform.clock.Now();
    std::vector<OccurrenceRef> answered;
    for (const ReminderLine& line : lines)
        if (line.occurrence && (HasRung || line.occurrence->moment <= now))
            answered.push_back(*line.occurrence);
    services_.outcomes.Answer(answered);
}

std::vector<ReminderLine> frmReminder::Selected() const {
    std::vector<ReminderLine> selected;
    for (const int row : lstReminders_.Selection())
        if (std::cmp_less(row, shown_.size())) selected.push_back(shown_[static_cast<std::size_t>(row)]);
    return selected;
}

void frmReminder::ShowButtons() {
    const std::vector<ReminderLine> selected = Selected();
    const AgainChoice last = again_.Last();
    cmdLast.Text("&Again " + last.Words());
    cmdDone.Enabled(!selected.empty());
    cmdAgain.Enabled(!selected.empty());
    cmdLast.Enabled(last.kind == AgainChoice::Kind::WhenItStarts ? CanStart(selected) : !selected.empty());
}

bool frmReminder::CanStart(const std::vector<ReminderLine>& lines) const {
    const DateValue now = services_.platform.clock.Now();
    return std::any_of(lines.begin(), lines.end(),
                       [&](const ReminderLine& line) { return line.Start() && *line.Start() > now; });
}

void frmReminder::Leave(const std::vector<ReminderLine>& lines) {
    for (const ReminderLine& line : lines)
        if (line.occurrence) left_(*line.occurrence);
    Drop(lines);
}

void frmReminder::DropLines(const std::function<bool(const OccurrenceRef&)>& isOver) {
    std::vector<ReminderLine> over;
    for (const ReminderLine& line : lines_.All())
        if (line.occurrence && isOver(*line.occurrence)) over.push_back(line);
    if (!over.empty()) Drop(over);
}

void frmReminder::Drop(const std::vector<ReminderLine>& lines) {
    lines_.Remove(lines);
    FillList();
    if (lines_.Empty()) services_.openWindows.Unload(*this);
}

void frmReminder::lstReminders_DblClick() {
    const std::vector<ReminderLine> selected = Selected();
    if (selected.size() != 1 || !selected.front().occurrence) return;
    if (requests_.edit(*selected.front().occurrence) && !closed_) Leave(selected);
}

void frmReminder::cmdDone_Click() {
    const std::vector<ReminderLine> done = Selected();
    Leave(done);
    Answer(done);
    requests_.answered();
}

void frmReminder::cmdAgain_Click() { again_.ShowUnder(IDC_cmdLineAgain, CanStart(Selected())); }

void frmReminder::cmdLast_Click() { PutOff(Selected(), again_.Last()); }

// The list can change while the user types a time of his own.
void frmReminder::mnuAgain_Click(int command) {
    const std::vector<ReminderLine> selected = Selected();
    const auto choice = again_.ChoiceOf(command);
    if (!choice || closed_) return;
    again_.Keep(*choice);
    PutOff(selected, *choice);
    if (!closed_) ShowButtons();
}

void frmReminder::PutOff(const std::vector<ReminderLine>& lines, const AgainChoice& choice) {
    const DateValue now = services_.platform.clock.Now();
    std::map<DateValue, std::vector<OccurrenceRef>> asleep;
    std::vector<ReminderLine> leaving;
    for (const ReminderLine& line : lines) {
        const auto until = choice.Until(now, line.Start());
        if (!until || !line.occurrence) continue;
        OccurrenceRef occurrence = *line.occurrence;
        // What comes again before its own alarm does not take the place of that.
        if (*until < occurrence.moment) occurrence.moment = now.ToMinute();
        asleep[*until].push_back(occurrence);
        leaving.push_back(line);
    }
    for (const auto& [until, occurrences] : asleep)
        services_.outcomes.Sleep(occurrences, until);
    Leave(leaving);
    requests_.answered();
}

void frmReminder::PlayItsSound() {
    if (!services_.player.HasSound() || services_.settings.Flag("NoSounds")) return;
    const std::string usual =
        DefaultAlarmSound(services_.platform.files, services_.settings, services_.applicationFolder);
    if (!FileExists(services_.platform.files, SoundFile)) SoundFile = usual;
    services_.player.PlayWav(SoundFile, usual);
}

}  // namespace kaz
