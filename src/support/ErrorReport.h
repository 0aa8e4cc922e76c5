#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// What is sent about a failure, as a mail link and as a text for mailing by hand.
struct ErrorReport {
    std::string application;
    std::string version;
    std::string operatingSystem;
    std::string address;  // where reports go
    std::string logFile;  // the full path
    std::string error;
    std::string userMessage;
    std::string log;

    // The system refuses longer links.
    static constexpr std::size_t kLongestLink = 2000;

    // A link for the user's mail program. Of a log that is too long it has the last lines, with a note;
    // nothing when the link is too long even without the log.
    std::optional<std::string> MailLink() const;
    std::string AsText() const;

    // The text as part of a mail link.
    static std::string MakeClean(std::string_view text);
};

}  // namespace kaz
