#include "reminders/ReminderWindows.h"

#include "reminders/DeferredQuestion.h"

#include <cstdlib>

namespace kaz {

std::shared_ptr<frmReminder> ReminderWindows::Find(ReminderKind kind) const {
    auto form = forms_[static_cast<std::size_t>(kind)].lock();
    return form && !form->Closed() ? form : nullptr;
}

frmReminder& ReminderWindows::Open(ReminderKind kind) {
    ++timesShown_;
    if (const auto open = Find(kind)) return *open;
    const auto form = std::make_shared<frmReminder>(services_.factory.Create(IDD_REMINDER), services_);
    services_.openWindows.Add(form);
    forms_[static_cast<std::size_t>(kind)] = form;
    if (kind == ReminderKind::Alarm) listed_.clear();
    return *form;
}

void ReminderWindows::Close(ReminderKind kind) {
    if (const auto form = Find(kind)) services_.openWindows.Unload(*form);
}

bool ReminderWindows::IsListed(const AlarmRinging& ringing) const {
    return Find(ReminderKind::Alarm) && listed_.contains(ringing);
}

bool ReminderWindows::FirstRun(const AlarmRinging& ringing) {
    // A pass can look back to the day before.
    std::erase_if(
        run_, [&](const AlarmRinging& old) { return std::abs(old.minute.Day() - ringing.minute.Day()) > 1; });
    const bool first = run_.insert(ringing).second;
    if (first) ++timesShown_;
    return first;
}

void ReminderWindows::AskLater(const std::string& text, std::function<void(bool yes)> answer) {
    services_.openWindows.Add(std::make_shared<DeferredQuestion>(services_.factory.Create(IDD_REMINDER),
                                                                 services_, text, std::move(answer)));
}

}  // namespace kaz
