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
    if (IsFirst(failure, logged_)) log_(OneLineOf(failure.reason));
    log_("Mail not sent yet, will be tried again, " + Name(mail));
}

void MailNews::NotSent(const Mail& mail, const MailFailure& failure) {
    Trouble(failure);
    log_("Mail NOT SENT " + Name(mail));
}

void MailNews::Trouble(const MailFailure& failure) {
    if (IsFirst(failure, logged_)) log_(OneLineOf(failure.reason));
    // Who has cancelled it knows it, and at the end of the program nobody looks.
    if (failure.kind == MailTrouble::Cancelled || failure.kind == MailTrouble::ProgramEnd) return;
    if (IsFirst(failure, shown_)) show_(failure.reason);
}

bool MailNews::IsFirst(const MailFailure& failure, std::set<MailTrouble>& told) {
    const std::lock_guard lock(mutex_);
    return told.insert(failure.kind).second;
}

}  // namespace kaz
