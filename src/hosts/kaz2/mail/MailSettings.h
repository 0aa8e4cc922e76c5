#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// What the section [Mail] of "KAZ2.ini" says: how this host sends mail.
struct MailSettings {
    enum class Method { None, Mapi, Smtp };
    enum class Security { None, StartTls, Tls };

    Method method = Method::Mapi;
    // The rest is for Smtp.
    std::string server;
    int port = 0;
    Security security = Security::StartTls;
    std::string user;  // empty: the server wants no login
    std::string from;
    std::chrono::seconds timeout{30};  // for one mail, from the first connection on

    // One sentence for each thing that is wrong; while there is one, no mail is sent by guess.
    std::vector<std::string> problems;
    std::string Problems() const;  // as one text
};

// The settings of that text, in UTF-8. A missing file is an empty text: the user's mail program.
MailSettings ReadMailSettings(std::string_view text);

}  // namespace kaz
