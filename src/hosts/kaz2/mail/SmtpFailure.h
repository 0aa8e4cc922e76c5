#pragma once

#include "hosts/kaz2/mail/Mail.h"

#include <string>

namespace kaz {

// What a transfer's end (a CURLcode other than CURLE_OK) means for the user. `reply` is the last line that
// the server said, or empty.
MailFailure SmtpFailure(int result, const std::string& server, const std::string& reply);

}  // namespace kaz
