#pragma once

#include <string>

namespace kaz {

// The password (UTF-8) that Windows keeps for this user under "KAZ2 SMTP". Throws MailFailure, with the
// command that sets it, when there is none.
std::string SmtpPassword();

}  // namespace kaz
