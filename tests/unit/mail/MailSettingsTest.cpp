#include "hosts/kaz2/mail/MailSettings.h"

#include <gtest/gtest.h>

namespace kaz {

using Method = MailSettings::Method;
using Security = MailSettings::Security;

TEST(MailSettings, ComeFromTheFileWithDefaultsForTheRest) {
    EXPECT_EQ(ReadMailSettings("").method, Method::Mapi);
    EXPECT_EQ(ReadMailSettings("[Mail]\nmethod = none").method, Method::None);

    const MailSettings least =
        ReadMailSettings("[Mail]\r\nServer=mail.example.org\r\nUser=me@example.org\r\n");
    EXPECT_EQ(least.Problems(), "");
    EXPECT_EQ(least.method, Method::Smtp) << "a server that is named is to be used";
    EXPECT_EQ(least.security, Security::StartTls);
    EXPECT_EQ(least.port, 587);
    EXPECT_EQ(least.from, "me@example.org");

    const MailSettings all =
        ReadMailSettings("\xEF\xBB\xBF; mail\n[Other]\nServer=no\n# the section\n [MAIL] "
                         "\nMethod=SMTP\nSERVER = [::1]\nPort=2525\n"
                         "Security=tls\nUser=a=b\nFrom=kaz@example.org\nTimeout=120\n[Later]\nPort=1\n");
    EXPECT_EQ(all.Problems(), "");
    EXPECT_EQ(all.server, "[::1]");
    EXPECT_EQ(all.port, 2525);
    EXPECT_EQ(all.security, Security::Tls);
    EXPECT_EQ(all.user, "a=b");
    EXPECT_EQ(all.timeout, std::chrono::seconds(120));
}

TEST(MailSettings, TellEverythingThatIsWrong) {
    const auto problems = [](const std::string& lines) {
        return ReadMailSettings("[Mail]\n" + lines).Problems();
    };
    EXPECT_EQ(problems("Security=SSL"), "KAZ2.ini, line 2: Security is None, StartTLS or TLS, not \"SSL\".");
    EXPECT_EQ(problems("\nSever=x"), "KAZ2.ini, line 3: \"Sever\" is not a setting of [Mail].");
    const std::string server = "Server=mail.example.org\nFrom=a@b\n";
    EXPECT_EQ(problems(server), "");
    for (const char* bad :
         {"Method=", "Port=0", "Port=65536", "Port=25x", "Timeout=4", "Timeout", "From=me",
          "Server=user@host", "Server=host/path", "Server=host:587", "Security=None\nUser=me"})
        EXPECT_NE(problems(server + bad), "") << bad;
    EXPECT_EQ(problems("Server=LOCALHOST\nFrom=a@b\nSecurity=None\nUser=me"), "")
        << "it stays on this machine";
    EXPECT_NE(problems("Method=SMTP").find("Server"), std::string::npos);
    EXPECT_NE(problems("Server=x").find("From"), std::string::npos);
    EXPECT_NE(ReadMailSettings(std::string_view("[\0M\0", 4)).Problems(), "") << "an editor's \"Unicode\"";
    const std::string password = problems(server + "Password=secret");
    EXPECT_NE(password.find("cmdkey"), std::string::npos);
    EXPECT_EQ(password.find("secret"), std::string::npos) << "this goes into the log";
}

}  // namespace kaz
