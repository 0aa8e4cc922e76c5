#include "support/ErrorReport.h"

#include "base/Text.h"

namespace kaz {

namespace {

constexpr std::string_view kShortened = "(The end of the log. All of it is in the file above.)\r\n";

std::string Escaped(char c) {
    const unsigned code = static_cast<unsigned char>(c);
    return {'%', HexDigit(code >> 4U), HexDigit(code)};
}

// The last whole lines of a text that fit into so many characters of a link,
// behind a note that some are missing.
std::string EndOf(std::string_view text, std::size_t room) {
    const std::string note = ErrorReport::MakeClean(kShortened);
    if (note.size() > room) return {};
    std::string end;
    while (!text.empty()) {
        std::string_view before = text;
        if (before.ends_with(kLineBreak)) before.remove_suffix(kLineBreak.size());
        const auto lineBreak = before.rfind(kLineBreak);
        const auto start = lineBreak == std::string_view::npos ? 0 : lineBreak + kLineBreak.size();
        const std::string line = ErrorReport::MakeClean(text.substr(start));
        if (note.size() + line.size() + end.size() > room) break;
        end.insert(0, line);
        text = text.substr(0, start);
    }
    return note + end;
}

}  // namespace

std::string ErrorReport::MakeClean(std::string_view text) {
    // Each character by itself, so that no escape is escaped again. Beside what has a meaning in a link,
    // these are quotation marks, which would end the link on the mail program's command line.
    std::string clean;
    clean.reserve(text.size());
    for (const char c : text) {
        const bool plain = !IsControl(c) && std::string_view("%?&# \"").find(c) == std::string_view::npos;
        clean += plain ? std::string(1, c) : Escaped(c);
    }
    return clean;
}

std::optional<std::string> ErrorReport::MailLink() const {
    const std::string lineBreak = MakeClean(kLineBreak);
    const std::string program = application + " " + version + " " + operatingSystem;
    const std::string before =
        "mailto:" + address + "?subject=" + MakeClean("Bug Report (" + application + " - " + version + ")") +
        "&body=" +
        MakeClean("Error Report: " + program + " (Please click Attach and add the file " + logFile + ")") +
        lineBreak + MakeClean("User: " + userMessage) + lineBreak + MakeClean(error) + lineBreak;
    const std::string after = "&attachment=" + MakeClean(logFile);

    const std::size_t length = before.size() + after.size();
    if (length > kLongestLink) return std::nullopt;
    const std::size_t room = kLongestLink - length;
    std::string body = log.size() > room ? EndOf(log, room) : MakeClean(log);
    if (body.size() > room) body = EndOf(log, room);
    return before + body + after;
}

std::string ErrorReport::AsText() const {
    const std::string rule = std::string(75, '-').append(kLineBreak);
    std::string text = "Error Report: " + application + " " + version + ", " + operatingSystem;
    const auto append = [&](std::string_view part) { text.append(kLineBreak).append(part); };
    append(error);
    if (!userMessage.empty()) append(userMessage);
    append(log);
    if (!text.ends_with(kLineBreak)) text.append(kLineBreak);
    text.append(rule);
    text.append("If the 'submit report' button doesn't work on your system, open an email\r\n");
    text.append("to '").append(address).append("' and paste the following text into it.\r\n");
    text.append("Submitting a bug report helps improve the software.\r\n");
    return text.append(rule);
}

}  // namespace kaz
