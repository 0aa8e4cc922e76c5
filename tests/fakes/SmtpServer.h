#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>

namespace kaz {

// A mail server on a free port of this machine that agrees to everything but what `replies` says, by the
// start of the client's line: {"RCPT", "550 No such user"}. "." stands for the end of a message, "" for the
// greeting; an empty reply leaves the client waiting.
class SmtpServer {
public:
    using Replies = std::map<std::string, std::string>;
    explicit SmtpServer(Replies replies = {});
    ~SmtpServer();

    std::uint16_t Port() const { return port_; }
    // All that clients have said, with line ends as "\n".
    std::string Heard() const;

private:
    void Talk(std::intptr_t client);
    std::string ReplyTo(const std::string& line) const;

    const Replies replies_;
    std::uint16_t port_ = 0;
    mutable std::mutex mutex_;
    std::string heard_;
    std::jthread thread_;
};

}  // namespace kaz
