#include "hosts/kaz2/mail/SmtpSender.h"

#include "hosts/kaz2/mail/MailAddresses.h"
#include "hosts/kaz2/mail/MailMessage.h"
#include "hosts/kaz2/mail/SmtpFailure.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace kaz {

namespace {

struct EndTransfer {
    void operator()(CURL* transfer) const { curl_easy_cleanup(transfer); }
};
using Transfer = std::unique_ptr<CURL, EndTransfer>;

struct FreeList {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using TextList = std::unique_ptr<curl_slist, FreeList>;

// Left to the end of the process to clean up: a thread that is stuck in a
// transfer may outlive everything else.
bool LibraryIsReady() {
    static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return ready;
}

TextList ListOf(const std::vector<std::string>& texts) {
    TextList list;
    for (const std::string& text : texts) {
        curl_slist* const longer = curl_slist_append(list.get(), text.c_str());
        if (!longer) throw std::bad_alloc();
        static_cast<void>(list.release());  // the longer one has it
        list.reset(longer);
    }
    return list;
}

// What a transfer works on while it runs.
struct Exchange {
    std::string message;
    std::size_t sent = 0;
    std::string lastReply;
    std::stop_token stop;
};

std::size_t GiveMessage(char* buffer, std::size_t size, std::size_t count, void* context) {
    auto& exchange = *static_cast<Exchange*>(context);
    const std::size_t length = std::min(size * count, exchange.message.size() - exchange.sent);
    exchange.message.copy(buffer, length, exchange.sent);
    exchange.sent += length;
    return length;
}

std::size_t KeepReply(char* line, std::size_t size, std::size_t count, void* context) {
    const std::string_view reply(line, size * count);
    // The goodbye says nothing; a refusal before it does.
    if (!reply.starts_with("221")) static_cast<Exchange*>(context)->lastReply = reply;
    return size * count;
}

int IsToStop(void* context, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return static_cast<Exchange*>(context)->stop.stop_requested() ? 1 : 0;
}

void SetConnection(CURL* transfer, const MailSettings& settings) {
    const bool fromTheStart = settings.security == MailSettings::Security::Tls;
    const std::string address =
        (fromTheStart ? "smtps://" : "smtp://") + settings.server + ":" + std::to_string(settings.port);
    const auto milliseconds = std::chrono::milliseconds(settings.timeout).count();
    curl_easy_setopt(transfer, CURLOPT_URL, address.c_str());
    curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    // With StartTLS a server without encryption is a failure: nothing goes over
    // the line that others can read.
    curl_easy_setopt(transfer, CURLOPT_USE_SSL,
                     static_cast<long>(settings.security == MailSettings::Security::None ? CURLUSESSL_NONE
                                                                                         : CURLUSESSL_ALL));
    curl_easy_setopt(transfer, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    // A certificate whose issuer's list cannot be reached is taken; one that is on the list is not.
    curl_easy_setopt(transfer, CURLOPT_SSL_OPTIONS, static_cast<long>(CURLSSLOPT_REVOKE_BEST_EFFORT));
    curl_easy_setopt(transfer, CURLOPT_PROXY, "");
    curl_easy_setopt(transfer, CURLOPT_TIMEOUT_MS, static_cast<long>(milliseconds));
    // Signals are for the whole process; the time limits work without them.
    curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
}

}  // namespace

SmtpSender::SmtpSender(MailSettings settings, Secret password)
    : settings_(std::move(settings)),
      password_(std::move(password)) {}

void SmtpSender::Send(const Mail& mail, const std::stop_token& stop) {
    const std::vector<std::string> addresses = AddressesOf(mail.to);
    Exchange exchange{MailMessage(mail, settings_.from, addresses, MailStamp::Now()), 0, "", stop};
    const TextList recipients = ListOf(addresses);
    const Transfer transfer(LibraryIsReady() ? curl_easy_init() : nullptr);
    CURL* const curl = transfer.get();
    if (!curl) throw std::bad_alloc();

    SetConnection(curl, settings_);
    if (!settings_.user.empty()) {
        curl_easy_setopt(curl, CURLOPT_USERNAME, settings_.user.c_str());
        curl_easy_setopt(curl, CURLOPT_PASSWORD, password_.Text());
    }
    curl_easy_setopt(curl, CURLOPT_MAIL_FROM, settings_.from.c_str());
    curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, recipients.get());
    curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(curl, CURLOPT_READFUNCTION, &GiveMessage);
    curl_easy_setopt(curl, CURLOPT_READDATA, &exchange);
    curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, &KeepReply);
    curl_easy_setopt(curl, CURLOPT_HEADERDATA, &exchange);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, &IsToStop);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, &exchange);

    const CURLcode result = curl_easy_perform(curl);
    if (result != CURLE_OK) throw SmtpFailure(result, settings_.server, exchange.lastReply);
}

}  // namespace kaz
