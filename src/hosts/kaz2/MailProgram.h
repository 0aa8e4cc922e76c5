#pragma once

namespace kaz {

// True when the user's mail program takes mails from others. Asked first, because the system answers a mail
// without such a program with a message box of its own.
bool MailProgramTakesMails();

}  // namespace kaz
