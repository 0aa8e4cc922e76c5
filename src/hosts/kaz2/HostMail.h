#pragma once

#include "hosts/kaz2/HostLog.h"
#include "hosts/kaz2/TrayBalloon.h"
#include "hosts/kaz2/mail/MailNews.h"
#include "hosts/kaz2/mail/MailSettings.h"
#include "hosts/kaz2/mail/Postman.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// The mails of this host, sent as "KAZ2.ini" in the data folder says, which is read for
// each mail anew. Before the first mail, nothing of it costs a start any time. To be used
// on the thread with the message loop.
class HostMail {
public:
    explicit HostMail(const std::wstring& folder);
    HostMail(const HostMail&) = delete;
    HostMail& operator=(const HostMail&) = delete;

    // Tells what is wrong with the settings, while the one who wrote them is still there.
    void CheckSettings();
    // Returns at once; what becomes of the mail is in the log, and a failure is shown at the tray.
    void Send(std::wstring_view to, std::wstring_view subject, std::wstring_view text);
    // See Postman::Finish. Later mails are told as not sent.
    void Finish(std::chrono::milliseconds most);

private:
    MailNews& News();

    std::wstring settingsFile_;
    HostLog log_;
    std::optional<TrayBalloon> balloon_;
    std::shared_ptr<MailNews> news_;
    std::optional<Postman> postman_;
};

}  // namespace kaz
