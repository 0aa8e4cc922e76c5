#pragma once

#include "hosts/kaz2/mail/Mail.h"

#include <functional>
#include <mutex>
#include <set>
#include <string>

namespace kaz {

// What the user hears of the mails: every mail's fate is a line of the log, and so is each reason of a
// failure, once. Shown is one failure of each kind, so that ten mails without a server are not ten
// interruptions. Any thread.
class MailNews {
public:
    using Tell = std::function<void(const std::string& text)>;  // UTF-8

    // Neither throws. `log` takes one line, `show` some sentences.
    MailNews(Tell log, Tell show) : log_(std::move(log)), show_(std::move(show)) {}

    void Sent(const Mail& mail);
    // Not sent yet, but not given up.
    void Delayed(const Mail& mail, const MailFailure& failure);
    void NotSent(const Mail& mail, const MailFailure& failure);
    // A failure before there is a mail.
    void Trouble(const MailFailure& failure);

private:
    void LogReason(const MailFailure& failure);
    template <class What>
    bool IsNew(const What& what, std::set<What>& told);

    const Tell log_;
    const Tell show_;
    std::mutex mutex_;
    std::set<std::string> logged_;
    std::set<MailTrouble> shown_;
};

}  // namespace kaz
