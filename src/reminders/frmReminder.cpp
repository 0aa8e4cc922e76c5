#include "reminders/frmReminder.h"

#include "base/Numbers.h"
#include "platform/Files.h"
#include "storage/clsSounds.h"

namespace kaz {

namespace {
constexpr int kFirstShowing = 2000;  // milliseconds
constexpr int kComeBack = 30000;
constexpr int kSleepTick = 1000;
}  // namespace

frmReminder::frmReminder(std::unique_ptr<Window> window, const ReminderWindowServices& services)
    : Form(std::move(window), services.errors, "frmReminder"),
      services_(services) {
    On(IDT_Timer1, Raised::Timer, "Timer1_Timer", &frmReminder::Timer1_Timer);
    On(IDC_cmdRemindMe, Raised::Click, "cmdRemindMe_Click", &frmReminder::cmdRemindMe_Click);
    On(IDC_cmdContinue, Raised::Click, "cmdContinue_Click", &frmReminder::cmdContinue_Click);
    On(0, Raised::CloseBox, "cmdContinue_Click", &frmReminder::cmdContinue_Click);
}

void frmReminder::Heading(const std::string& text) {
    lblHeading.Text(text);
    window().SetText(0, text);
    if (!armed_) Wake();
}

void frmReminder::AddToList(const std::vector<std::string>& texts) {
    lines_.Add(texts);
    FillList();
}

void frmReminder::ClearList() {
    lines_.Clear();
    FillList();
}

bool frmReminder::ReplaceList(const std::vector<std::string>& texts) {
    ReminderLines lines;
    lines.Add(texts);
    if (lines.Texts() == lines_.Texts()) return false;
    lines_ = std::move(lines);
    FillList();
    return true;
}

void frmReminder::FillList() { lstReminders.Items(lines_.Texts()); }

void frmReminder::Wake() {
    armed_ = true;
    sleeping_ = false;
    Timer1.Start(kFirstShowing);
}

void frmReminder::ShowOnTop() {
    window().SetTopMost(true);
    if (!window().IsVisible()) window().Show(Activation::KeepFocus);
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
    if (!ComeToFront()) return;
    Timer1.Start(kComeBack);
    if (PlaySound) PlayItsSound();
}

void frmReminder::CountSleep() {
    if (++seconds_ < 60) return;
    seconds_ = 0;
    if (++minutes_ < sleepMinutes_) return;
    minutes_ = 0;
    // Kept on purpose: after a sleep the window comes back once. The timer stays off and the window counts as
    // sleeping, so that only another click, or something new to list, makes it come to the front again.
    Timer1.Stop();
    if (ComeToFront() && PlaySound) PlayItsSound();
}

// False when the user closed the window, or put it to sleep, just as it appeared.
bool frmReminder::ComeToFront() {
    if (!window().IsVisible()) window().Show(Activation::KeepFocus);
    services_.pump.ProcessPending();
    if (!window().IsVisible()) return false;
    window().BringToFront();
    return true;
}

void frmReminder::cmdRemindMe_Click() {
    // Read first: minutes beyond 16 bits are an error that leaves the window as it is.
    const std::int16_t minutes = RoundToInt16(LeadingNumber(txtSleep.Text()));
    sleeping_ = true;
    sleepMinutes_ = minutes;
    seconds_ = 0;
    minutes_ = 0;
    Timer1.Start(kSleepTick);
    window().Hide();
    services_.pump.ProcessPending();
}

void frmReminder::cmdContinue_Click() {
    window().Hide();
    services_.pump.ProcessPending();
    services_.openWindows.Unload(*this);
}

void frmReminder::PlayItsSound() {
    if (!services_.player.HasSound() || services_.settings.Flag("NoSounds")) return;
    if (!FileExists(services_.files, SoundFile))
        SoundFile = DefaultAlarmSound(services_.settings, services_.applicationFolder);
    services_.player.PlayWav(SoundFile);
}

}  // namespace kaz
