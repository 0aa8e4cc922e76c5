#pragma once

#include <stop_token>
#include <string>

namespace kaz {

// A mail that the component asked for. All texts are UTF-8.
struct Mail {
    std::string to;  // addresses, separated by ";"
    std::string subject;
    std::string text;
};

// What can be wrong. Failures of one kind have one remedy, so the user hears of each kind once.
enum class MailTrouble {
    Settings,
    Recipients,
    NoMailProgram,
    MailProgram,
    Cancelled,  // by the user, who needs not be told
    Password,
    Connection,
    Encryption,
    Refused,  // by the server
    TooMany,
    ProgramEnd
};

// Thrown by a MailSender: why a mail did not go out.
struct MailFailure {
    MailTrouble kind;
    std::string reason;    // sentences for the user
    bool mayPass = false;  // by itself, so that another attempt is worth it
};

// One way to send mail.
class MailSender {
public:
    virtual ~MailSender() = default;
    // Returns when the mail is handed over; throws MailFailure. May take long, also because a person is
    // asked; `stop` asks to give up where that is possible.
    virtual void Send(const Mail& mail, const std::stop_token& stop) = 0;
};

}  // namespace kaz
