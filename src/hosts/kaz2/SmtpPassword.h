#pragma once

#include "hosts/kaz2/mail/Secret.h"

namespace kaz {

// The password (UTF-8) that Windows keeps for this user under "KAZ2 SMTP". Throws MailFailure, with the
// command that sets it, when there is none.
Secret SmtpPassword();

}  // namespace kaz
