#include "hosts/kaz2/mail/MailSettings.h"

#include "hosts/kaz2/mail/MailAddresses.h"
#include "hosts/kaz2/mail/MailText.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace kaz {

namespace {

bool SameWord(std::string_view one, std::string_view other) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; };
    return std::ranges::equal(one, other, {}, lower, lower);
}

std::optional<int> NumberIn(std::string_view text, int least, int most) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > most)
        return std::nullopt;
    return number;
}

// The choice that the word stands for.
template <class Choice>
std::optional<Choice> Chosen(std::string_view value,
                             std::initializer_list<std::pair<std::string_view, Choice>> words) {
    for (const auto& [word, choice] : words)
        if (SameWord(value, word)) return choice;
    return std::nullopt;
}

// Keeps a value that could be read; false when it could not.
template <class Target, class Value>
bool Keep(Target& target, std::optional<Value> value) {
    if (value) target = std::move(*value);
    return value.has_value();
}

std::optional<std::string> TextIf(bool isGood, std::string_view value) {
    return isGood ? std::optional<std::string>(value) : std::nullopt;
}

// Into the address of the server goes nothing that has another meaning there. Colons only inside "[::1]": the
// port is a setting of its own.
bool IsHostName(std::string_view text) {
    const bool isNumber = text.starts_with('[') && text.ends_with(']');
    if (isNumber) text = text.substr(1, text.size() - 2);
    return std::ranges::all_of(text, [isNumber](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' ||
               c == (isNumber ? ':' : '-');
    });
}

bool IsThisMachine(std::string_view server) {
    return SameWord(server, "localhost") || server == "127.0.0.1" || server == "[::1]";
}

using Method = MailSettings::Method;
using Security = MailSettings::Security;

struct Draft {
    MailSettings settings;
    std::optional<Method> method;
};

struct Key {
    std::string_view name;
    bool (*take)(Draft& draft, std::string_view value);  // false: the value cannot be used
    std::string_view rule;
};

constexpr Key kKeys[] = {
    {"Method",
     [](Draft& draft, std::string_view value) {
         return Keep(
             draft.method,
             Chosen<Method>(value, {{"MAPI", Method::Mapi}, {"SMTP", Method::Smtp}, {"None", Method::None}}));
     },
     "Method is MAPI, SMTP or None"},
    {"Server",
     [](Draft& draft, std::string_view value) {
         return Keep(draft.settings.server, TextIf(IsHostName(value), value));
     },
     "Server is a name such as mail.example.org"},
    {"Port",
     [](Draft& draft, std::string_view value) {
         return Keep(draft.settings.port, NumberIn(value, 1, 65535));
     },
     "Port is a number from 1 to 65535"},
    {"Security",
     [](Draft& draft, std::string_view value) {
         return Keep(draft.settings.security, Chosen<Security>(value, {{"None", Security::None},
                                                                       {"StartTLS", Security::StartTls},
                                                                       {"TLS", Security::Tls}}));
     },
     "Security is None, StartTLS or TLS"},
    {"User",
     [](Draft& draft, std::string_view value) { return Keep(draft.settings.user, TextIf(true, value)); }, ""},
    {"From",
     [](Draft& draft, std::string_view value) {
         return Keep(draft.settings.from, TextIf(IsMailAddress(value), value));
     },
     "From is an e-mail address such as ann@example.org"},
    {"Timeout",
     [](Draft& draft, std::string_view value) {
         const auto seconds = NumberIn(value, 5, 300);
         return Keep(draft.settings.timeout,
                     seconds ? std::optional<std::chrono::seconds>(*seconds) : std::nullopt);
     },
     "Timeout is a number of seconds from 5 to 300"},
};

// Why the line cannot be used, without the number of the line; nothing when it can.
std::string ReadLine(Draft& draft, std::string_view line) {
    const std::size_t equals = std::min(line.find('='), line.size());
    const std::string_view name = TrimmedMailText(line.substr(0, equals));
    const std::string_view value = TrimmedMailText(line.substr(std::min(equals + 1, line.size())));
    if (SameWord(name, "Password"))
        return "a password does not belong in a file. Remove it, and let Windows keep it: "
               "cmdkey /generic:\"KAZ2 SMTP\" /user:NAME /pass";
    const auto* const key = std::ranges::find_if(kKeys, [&](const Key& k) { return SameWord(name, k.name); });
    if (key == std::end(kKeys)) return "\"" + OneLineOf(name) + "\" is not a setting of [Mail].";
    if (key->take(draft, value)) return "";
    return std::string(key->rule) + ", not \"" + OneLineOf(value) + "\".";
}

// What follows from the rest, and what is missing.
void Complete(MailSettings& settings) {
    if (settings.method != Method::Smtp) return;
    if (settings.port == 0)
        settings.port = settings.security == Security::Tls        ? 465
                        : settings.security == Security::StartTls ? 587
                                                                  : 25;
    if (settings.from.empty() && IsMailAddress(settings.user)) settings.from = settings.user;
    if (settings.server.empty()) settings.problems.emplace_back("KAZ2.ini: Method SMTP needs a Server.");
    if (settings.from.empty())
        settings.problems.emplace_back("KAZ2.ini: Method SMTP needs From, the address the mails come from.");
    if (!settings.user.empty() && settings.security == Security::None && !IsThisMachine(settings.server))
        settings.problems.emplace_back(
            "KAZ2.ini: a password is not sent unencrypted. Security must be StartTLS "
            "or TLS, or User empty.");
}

}  // namespace

std::string MailSettings::Problems() const {
    std::string text;
    for (const std::string& problem : problems)
        text.append(text.empty() ? "" : " ").append(problem);
    return text;
}

MailSettings ReadMailSettings(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    Draft draft;
    if (text.find('\0') != text.npos)
        draft.settings.problems.emplace_back("KAZ2.ini is not plain text; please save it as UTF-8.");
    bool inMail = false;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = TrimmedMailText(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == ';' || line.front() == '#') continue;
        if (line.front() == '[') {
            inMail = SameWord(line, "[Mail]");
        } else if (inMail) {
            const std::string problem = ReadLine(draft, line);
            if (!problem.empty())
                draft.settings.problems.push_back("KAZ2.ini, line " + std::to_string(number) + ": " +
                                                  problem);
        }
    }
    // Whoever names a server wants it to be used.
    draft.settings.method =
        draft.method.value_or(draft.settings.server.empty() ? Method::Mapi : Method::Smtp);
    Complete(draft.settings);
    return std::move(draft.settings);
}

}  // namespace kaz
