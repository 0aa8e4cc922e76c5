#pragma once

#include "hosts/kaz2/mail/Mail.h"
#include "hosts/kaz2/mail/MailSettings.h"
#include "hosts/kaz2/mail/Secret.h"

namespace kaz {

// Hands mails to a mail server, through libcurl, which is not touched before the first one.
class SmtpSender final : public MailSender {
public:
    // `settings` have no problems; `password` belongs to their user.
    SmtpSender(MailSettings settings, Secret password);

    // All recipients get the mail, or none does.
    void Send(const Mail& mail, const std::stop_token& stop) override;

private:
    MailSettings settings_;
    Secret password_;
};

}  // namespace kaz
