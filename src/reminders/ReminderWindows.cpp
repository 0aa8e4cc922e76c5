#include "reminders/ReminderWindows.h"

#include "forms/WindowFactory.h"
#include "reminders/ReminderText.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kaz {

namespace {
constexpr std::size_t kMostWaiting = 20;
constexpr const char* kTest = " (test)";
}  // namespace

std::shared_ptr<frmReminder> ReminderWindows::Find(ReminderKind kind) const {
    auto form = forms_[static_cast<std::size_t>(kind)].lock();
    return form && !form->Closed() ? form : nullptr;
}

frmReminder& ReminderWindows::Open(ReminderKind kind) {
    ++timesShown_;
    if (const auto open = Find(kind)) return *open;
    const auto form = std::make_shared<frmReminder>(
        services_.platform.windows.Create(IDD_REMINDER), services_, requests,
        [this, kind](const OccurrenceRef& of) { left_[static_cast<std::size_t>(kind)].insert(of); });
    services_.openWindows.Add(form);
    forms_[static_cast<std::size_t>(kind)] = form;
    return *form;
}

void ReminderWindows::Close(ReminderKind kind) {
    if (const auto form = Find(kind)) services_.openWindows.Unload(*form);
    shown_[static_cast<std::size_t>(kind)].reset();
}

bool ReminderWindows::HasShown(ReminderKind kind, DateValue day,
                               const std::vector<std::string>& lines) const {
    return shown_[static_cast<std::size_t>(kind)] == Showing{day, lines};
}

void ReminderWindows::SetShown(ReminderKind kind, DateValue day, std::vector<std::string> lines) {
    shown_[static_cast<std::size_t>(kind)] = Showing{day, std::move(lines)};
}

std::vector<ReminderLine> ReminderWindows::WithoutLeft(ReminderKind kind, DateValue now,
                                                       std::vector<ReminderLine> lines) {
    const auto place = static_cast<std::size_t>(kind);
    if (!shown_[place] || shown_[place]->day != now.DateOnly()) left_[place].clear();
    std::erase_if(lines, [&](const ReminderLine& line) {
        if (!line.occurrence) return false;
        if (left_[place].contains(*line.occurrence)) return true;
        const auto asleep = services_.outcomes.AsleepOf(line.occurrence->key);
        return std::any_of(asleep.begin(), asleep.end(), [&](const Outcomes::Asleep& one) {
            if (one.occurrence.day != line.occurrence->day || one.until <= now) return false;
            // On its own day it is told, unless it was put off on that day or to another one.
            return kind == ReminderKind::ComingUp || one.occurrence.moment.Day() >= now.Day();
        });
    });
    return lines;
}

void ReminderWindows::ForgetShown() {
    shown_ = {};
    left_ = {};
}

bool ReminderWindows::ShowNow() {
    bool any = false;
    for (const ReminderKind kind : {ReminderKind::ComingUp, ReminderKind::Today})
        if (const auto form = Find(kind)) {
            form->ShowNow();
            any = true;
        }
    return any;
}

void ReminderWindows::ShowTest(const std::string& line) {
    CloseTest();
    constexpr const char* kHeadings[] = {kHeadingComingUp, kHeadingToday, kHeadingAlarm};
    for (std::size_t i = 0; i < tests_.size(); ++i) {
        const auto form = std::make_shared<frmReminder>(services_.platform.windows.Create(IDD_REMINDER),
                                                        services_, requests, [](const OccurrenceRef&) {});
        services_.openWindows.Add(form);
        tests_[i] = form;
        form->AddToList(line);
        form->ShowAsTest(kHeadings[i] + std::string(kTest));
    }
    const auto missed =
        std::make_shared<frmMissed>(services_.platform.windows.Create(IDD_MISSED), services_, requests);
    services_.openWindows.Add(missed);
    missedTest_ = missed;
    missed->ShowAsTest(kHeadingMissed + std::string(kTest), line);
}

void ReminderWindows::CloseTest() {
    for (const auto& test : tests_)
        if (const auto form = test.lock(); form && !form->Closed()) services_.openWindows.Unload(*form);
    if (const auto form = missedTest_.lock(); form && !form->Closed()) services_.openWindows.Unload(*form);
}

void ReminderWindows::DropLines(const std::function<bool(const OccurrenceRef&)>& isOver) {
    for (const ReminderKind kind : {ReminderKind::ComingUp, ReminderKind::Today, ReminderKind::Alarm})
        if (const auto form = Find(kind)) form->DropLines(isOver);
}

void ReminderWindows::QuietEnded() {
    for (const auto& window : forms_)
        if (const auto form = window.lock(); form && !form->Closed()) form->QuietEnded();
    if (std::exchange(missedWaits_, false) && !missed_.empty()) MissedWindow().Appear(Activation::KeepFocus);
    AskNext();
}

void ReminderWindows::SetRung(const AlarmRinging& ringing) {
    // A pass can look back to the day before.
    std::erase_if(rung_, [&](const AlarmRinging& old) {
        return std::abs(old.minute.Day() - ringing.minute.Day()) > 1;
    });
    if (rung_.insert(ringing).second) ++timesShown_;
}

std::set<OccurrenceRef> ReminderWindows::Ringing() const {
    std::set<OccurrenceRef> ringing;
    if (const auto form = Find(ReminderKind::Alarm))
        for (const ReminderLine& line : form->Lines())
            if (line.occurrence) ringing.insert(*line.occurrence);
    return ringing;
}

std::shared_ptr<frmMissed> ReminderWindows::FindMissed() const {
    auto form = missedForm_.lock();
    return form && !form->Closed() ? form : nullptr;
}

frmMissed& ReminderWindows::MissedWindow() {
    if (const auto open = FindMissed()) return *open;
    const auto form =
        std::make_shared<frmMissed>(services_.platform.windows.Create(IDD_MISSED), services_, requests);
    services_.openWindows.Add(form);
    missedForm_ = form;
    form->Fill(missed_);
    return *form;
}

void ReminderWindows::ShowMissed(std::vector<MissedReminder> missed) {
    if (const auto sleeping = sleepingForm_.lock(); sleeping && !sleeping->Closed()) sleeping->Fill();
    if (missed == missed_) return;
    missed_ = std::move(missed);
    std::set<OccurrenceRef> now;
    for (const MissedReminder& one : missed_)
        now.insert(one.occurrences.back());
    const bool isNew = !std::ranges::includes(missedShown_, now);
    missedShown_ = std::move(now);
    if (const auto open = FindMissed()) {
        open->Fill(missed_);
        if (missed_.empty()) services_.openWindows.Unload(*open);
    }
    if (isNew) {
        ++timesShown_;
        missedWaits_ = services_.quiet.IsOn();
        if (!missedWaits_) MissedWindow().Appear(Activation::KeepFocus);
    }
    requests.missedChanged(missed_.size());
}

bool ReminderWindows::OpenSleeping() {
    auto form = sleepingForm_.lock();
    if (!form || form->Closed()) {
        form = std::make_shared<frmSleeping>(services_.platform.windows.Create(IDD_SLEEPING), services_,
                                             requests);
        if (!form->Fill()) return false;
        services_.openWindows.Add(form);
        sleepingForm_ = form;
    }
    form->Appear();
    return true;
}

bool ReminderWindows::OpenMissed() {
    if (missed_.empty()) return false;
    MissedWindow().Appear(Activation::TakeFocus);
    return true;
}

std::shared_ptr<frmRunFile> ReminderWindows::OpenQuestion() const {
    auto form = question_.lock();
    return form && !form->Closed() ? form : nullptr;
}

bool ReminderWindows::Ask(FileQuestion question) {
    const auto open = OpenQuestion();
    const auto isSame = [&](const FileQuestion& other) { return other.IsSameAs(question); };
    if ((open && isSame(open->Question())) || std::any_of(waiting_.begin(), waiting_.end(), isSame))
        return true;
    if (waiting_.size() >= kMostWaiting) return false;
    waiting_.push_back(std::move(question));
    AskNext();
    return true;
}

void ReminderWindows::AskNext() {
    if (waiting_.empty() || OpenQuestion() || services_.quiet.IsOn()) return;
    auto window = services_.platform.windows.Create(IDD_RUNFILE);
    const auto form = std::make_shared<frmRunFile>(std::move(window), services_, std::move(waiting_.front()),
                                                   [this] { AskNext(); });
    waiting_.pop_front();
    services_.openWindows.Add(form);
    question_ = form;
    form->Ask();
}

}  // namespace kaz
