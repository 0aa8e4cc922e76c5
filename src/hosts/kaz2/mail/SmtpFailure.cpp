#include "hosts/kaz2/mail/SmtpFailure.h"

#include "hosts/kaz2/mail/MailText.h"

#include <curl/curl.h>

namespace kaz {

namespace {

constexpr std::size_t kLongestReply = 200;

// " It said: 550 No such user." when there is something to repeat.
std::string Saying(const std::string& reply) {
    const std::string line = OneLineOf(TrimmedMailText(reply));
    return line.empty() ? "" : " It said: " + line.substr(0, kLongestReply);
}

MailFailure Refusal(const std::string& server, const std::string& reply) {
    // The server itself tells what may pass: a full mailbox, or a stranger who has to come again.
    return {MailTrouble::Refused, "The mail server " + server + " did not take the mail." + Saying(reply),
            reply.starts_with('4')};
}

}  // namespace

MailFailure SmtpFailure(int result, const std::string& server, const std::string& reply) {
    const std::string theServer = "The mail server " + server;
    switch (result) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT: return {MailTrouble::Connection, theServer + " cannot be reached.", true};
    case CURLE_OPERATION_TIMEDOUT:
        return {MailTrouble::Connection, theServer + " did not answer in time.", true};
    case CURLE_GOT_NOTHING:
    case CURLE_RECV_ERROR:
        return {MailTrouble::Connection, "The connection to the mail server " + server + " broke.", true};
    case CURLE_LOGIN_DENIED:
        // "454" and the like say that the server cannot look the password up now.
        return {MailTrouble::Password,
                theServer + " does not accept the user name and password." + Saying(reply),
                reply.starts_with('4')};
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
        return {MailTrouble::Encryption, theServer + " has no valid certificate, so nothing was sent to it."};
    case CURLE_USE_SSL_FAILED:
        return {MailTrouble::Encryption, theServer + " offers no encryption, so nothing was sent to it."};
    case CURLE_SSL_CONNECT_ERROR:
        return {MailTrouble::Encryption,
                theServer +
                    " could not be spoken to with encryption. Perhaps its certificate is out of date, or "
                    "the Port or the Security in KAZ2.ini is another."};
    case CURLE_ABORTED_BY_CALLBACK:
        return {MailTrouble::ProgramEnd, "The program ended before the mail server had taken the mail."};
    case CURLE_SEND_ERROR:
        if (reply.starts_with('2') || reply.starts_with('3') || reply.empty())
            return {MailTrouble::Connection, "The connection to the mail server " + server + " broke.", true};
        return Refusal(server, reply);
    default: return Refusal(server, reply);
    }
}

}  // namespace kaz
