#pragma once

#include "hosts/kaz2/Apartment.h"
#include "hosts/kaz2/mail/Mail.h"

namespace kaz {

// Hands mails to the user's mail program by Simple MAPI. The program may show a window and wait for the user,
// who may take any time; nothing stops it. Made and used on one thread.
class MapiSender final : public MailSender {
public:
    void Send(const Mail& mail, const std::stop_token& stop) override;

private:
    Apartment apartment_;
};

}  // namespace kaz
