#pragma once

#include "hosts/kaz2/mail/Mail.h"
#include "hosts/kaz2/mail/MailSettings.h"

#include <string>

namespace kaz {

// Hands mails to a mail server, through libcurl, which is not touched before the first one.
class SmtpSender final : public MailSender {
public:
    // `settings` have no problems; `password` belongs to their user.
    SmtpSender(MailSettings settings, std::string password);

    // All recipients get the mail, or none does.
    void Send(const Mail& mail, const std::stop_token& stop) override;

private:
    MailSettings settings_;
    std::string password_;
};

}  // namespace kaz
