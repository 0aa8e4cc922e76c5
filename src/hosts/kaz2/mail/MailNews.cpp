#include "hosts/kaz2/mail/MailNews.h"

#include "hosts/kaz2/mail/MailText.h"

namespace kaz {

namespace {

std::string Name(const Mail& mail) {
    return "to " + OneLineOf(mail.to) + ": " + OneLineOf(mail.subject) + ", " + OneLineOf(mail.text);
}

}  // namespace

void MailNews::Sent(const Mail& mail) { log_("Mail sent " + Name(mail)); }

void MailNews::Delayed(const Mail& mail, const MailFailure& failure) {
    LogReason(failure);
    log_("Mail not sent yet, will be tried again, " + Name(mail));
}

void MailNews::NotSent(const Mail& mail, const MailFailure& failure) {
    Trouble(failure);
    log_("Mail NOT SENT " + Name(mail));
}

void MailNews::Trouble(const MailFailure& failure) {
    LogReason(failure);
    // Who has cancelled it knows it, and at the end of the program nobody looks.
    if (failure.kind == MailTrouble::Cancelled || failure.kind == MailTrouble::ProgramEnd) return;
    if (IsNew(failure.kind, shown_)) show_(failure.reason);
}

void MailNews::LogReason(const MailFailure& failure) {
    if (IsNew(failure.reason, logged_)) log_(OneLineOf(failure.reason));
}

template <class What>
bool MailNews::IsNew(const What& what, std::set<What>& told) {
    const std::lock_guard lock(mutex_);
    return told.insert(what).second;
}

}  // namespace kaz
