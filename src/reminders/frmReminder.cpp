#include "reminders/frmReminder.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/MessagePump.h"
#include "storage/clsSounds.h"

#include <algorithm>
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

// What a person has closed is answered, but for what is still to come: the alarm of an event of today, and
// what he has put off in another window.
void Answer(Outcomes& outcomes, const std::vector<ReminderLine>& lines, std::optional<DateValue> toldUntil,
            DateValue now) {
    std::vector<OccurrenceRef> answered;
    for (const ReminderLine& line : lines) {
        const auto& occurrence = line.occurrence;
        if (occurrence && (!toldUntil || occurrence->moment <= *toldUntil) &&
            !IsToComeAgain(outcomes, *occurrence, now))
            answered.push_back(*occurrence);
    }
    outcomes.Answer(answered);
}

}  // namespace

frmReminder::frmReminder(std::unique_ptr<Window> window, const ReminderServices& services)
    : Form(std::move(window), services.errors, "frmReminder"),
      services_(services) {
    On(IDT_Timer1, Raised::Timer, "Timer1_Timer", &frmReminder::Timer1_Timer);
    On(IDC_cmdRemindMe, Raised::Click, "cmdRemindMe_Click", &frmReminder::cmdRemindMe_Click);
    On(IDC_cmdContinue, Raised::Click, "cmdContinue_Click", &frmReminder::cmdContinue_Click);
    On(0, Raised::CloseBox, "cmdContinue_Click", &frmReminder::cmdContinue_Click);
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

// A list box has one line for each, and draws blots for what would break it.
void frmReminder::FillList() {
    std::vector<std::string> texts;
    for (const ReminderLine& line : lines_.All())
        texts.push_back(OneLine(line.text));
    lstReminders.Items(texts);
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
    const std::vector<ReminderLine> read = lines_.All();
    services_.openWindows.Unload(*this);
    const DateValue now = services_.platform.clock.Now();
    Answer(services_.outcomes, read, HasRung ? std::nullopt : std::optional(now), now);
}

void frmReminder::PlayItsSound() {
    if (!services_.player.HasSound() || services_.settings.Flag("NoSounds")) return;
    const std::string usual =
        DefaultAlarmSound(services_.platform.files, services_.settings, services_.applicationFolder);
    if (!FileExists(services_.platform.files, SoundFile)) SoundFile = usual;
    services_.player.PlayWav(SoundFile, usual);
}

}  // namespace kaz
