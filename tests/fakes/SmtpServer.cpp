#include "fakes/SmtpServer.h"

#include "Sockets.h"

namespace kaz {

namespace {

sockaddr_in Loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

}  // namespace

SmtpServer::SmtpServer(Replies replies) : replies_(std::move(replies)) {
    StartSockets();
    const Socket listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Loopback(0);
    AddressSize size = sizeof address;
    bind(listener, reinterpret_cast<sockaddr*>(&address), size);
    listen(listener, 5);
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::jthread([this, listener](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            const Socket client = accept(listener, nullptr, nullptr);
            if (!stop.stop_requested()) Talk(static_cast<std::intptr_t>(client));
            CloseSocket(client);
        }
        CloseSocket(listener);
    });
}

SmtpServer::~SmtpServer() {
    thread_.request_stop();
    // Wakes the thread where it waits for a client.
    const Socket last = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(port_);
    connect(last, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    thread_.join();
    CloseSocket(last);
}

std::string SmtpServer::Heard() const {
    const std::lock_guard lock(mutex_);
    return heard_;
}

void SmtpServer::Talk(std::intptr_t client) {
    const auto wire = static_cast<Socket>(client);
    const auto say = [&](const std::string& reply) {
        const std::string line = reply + "\r\n";
        if (!reply.empty()) send(wire, line.data(), SendSize(line.size()), 0);
    };
    say(replies_.contains("") ? replies_.at("") : "220 test");
    bool inMessage = false;
    std::string line;
    for (char c; recv(wire, &c, 1, 0) == 1;) {
        line += c;
        if (!line.ends_with("\r\n")) continue;
        line.resize(line.size() - 2);
        const std::lock_guard lock(mutex_);
        heard_ += line + "\n";
        if (!inMessage || line == ".") {
            inMessage = line == "DATA";
            say(ReplyTo(line));
        }
        line.clear();
    }
}

std::string SmtpServer::ReplyTo(const std::string& line) const {
    for (const auto& [start, reply] : replies_)
        if (!start.empty() && line.starts_with(start)) return reply;
    if (line.starts_with("EHLO")) return "250-test\r\n250 AUTH PLAIN";
    if (line == "AUTH PLAIN") return "334 ";
    if (line.starts_with("AG")) return "235 welcome";  // the login: it begins with a zero byte
    return line == "DATA" ? "354 go on" : line == "QUIT" ? "221 bye" : "250 fine";
}

}  // namespace kaz
