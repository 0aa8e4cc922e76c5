#pragma once

#include "hosts/kaz2/mail/Mail.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kaz {

class MailNews;

// Carries the mails out on a thread of its own, one after the other, so that nothing else
// waits for a mail program or a server. What may pass by itself is tried again; every mail
// ends as sent or as not sent in the news.
class Postman {
public:
    // Makes the way of the next mail, on the postman's thread; throws MailFailure.
    using MakeSender = std::function<std::unique_ptr<MailSender>()>;
    struct Rules {
        std::size_t most = 200;  // mails at a time
        // Before each further attempt. The first one is short: at the start of a session the network may be
        // some seconds behind.
        std::vector<std::chrono::milliseconds> pauses{std::chrono::minutes(1), std::chrono::minutes(5),
                                                      std::chrono::minutes(15)};
    };

    // `news` is told from the postman's thread and from the caller's. Throws std::system_error when there is
    // no thread to be had.
    Postman(MakeSender makeSender, std::shared_ptr<MailNews> news, Rules rules);
    Postman(MakeSender makeSender, std::shared_ptr<MailNews> news)
        : Postman(std::move(makeSender), std::move(news), Rules()) {}
    // Finishes without waiting.
    ~Postman();
    Postman(const Postman&) = delete;
    Postman& operator=(const Postman&) = delete;

    // Returns at once.
    void Post(Mail mail);

    // Gives each waiting mail a last attempt, within that time; then what is left is news as not sent. False
    // when the thread is stuck in a mail program: it works on what it shares with nobody, but the process
    // should end without waiting for it.
    bool Finish(std::chrono::milliseconds most);

private:
    class Round;
    std::shared_ptr<Round> round_;
};

}  // namespace kaz
