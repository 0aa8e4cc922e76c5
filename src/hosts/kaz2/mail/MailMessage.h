#pragma once

#include "hosts/kaz2/mail/Mail.h"

#include <chrono>
#include <string>
#include <vector>

namespace kaz {

// What makes a message different from every other.
struct MailStamp {
    std::chrono::sys_seconds time;
    std::string unique;  // letters and digits

    static MailStamp Now();
};

// The mail as a message for a mail server (RFC 5322), with CR LF line ends. `from`
// and `recipients` are bare addresses.
std::string MailMessage(const Mail& mail, const std::string& from, const std::vector<std::string>& recipients,
                        const MailStamp& stamp);

}  // namespace kaz
