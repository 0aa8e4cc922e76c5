#include "hosts/kaz2/mail/SmtpSender.h"

#include "fakes/SmtpServer.h"

#include <gtest/gtest.h>

namespace kaz {

namespace {

using Security = MailSettings::Security;

// What comes of a mail of two recipients; "kind" Cancelled, which no server can cause, stands for success.
MailFailure Send(const SmtpServer& server, Security security = Security::None,
                 std::chrono::seconds timeout = std::chrono::seconds(20), const std::stop_token& stop = {}) {
    MailSettings settings;
    settings.server = "127.0.0.1";
    settings.port = server.Port();
    settings.security = security;
    settings.user = "me";
    settings.from = "me@example.org";
    settings.timeout = timeout;
    Secret password(9);
    std::string("pass word").copy(password.Data(), 9);
    try {
        SmtpSender(settings, std::move(password))
            .Send({"ann@example.org; bob@example.org", "KAZ Alert - Event 1", ".\r\n..dots\r\nCaf\xC3\xA9"},
                  stop);
        return {MailTrouble::Cancelled, "sent"};
    } catch (const MailFailure& failure) {
        return failure;
    }
}

}  // namespace

TEST(SmtpSender, HandsTheMailOverWithItsLogin) {
    const SmtpServer server;
    ASSERT_EQ(Send(server).reason, "sent");
    const std::string heard = server.Heard();
    for (const char* line : {"AUTH PLAIN\nAG1lAHBhc3Mgd29yZA==\n", "MAIL FROM:<me@example.org>",
                             "RCPT TO:<ann@example.org>\n", "RCPT TO:<bob@example.org>\n",
                             "\nSubject: KAZ Alert - Event 1\n", "\n\n..\n...dots\nCaf=C3=A9\n.\n"})
        EXPECT_NE(heard.find(line), std::string::npos) << line << "is missing in\n" << heard;
    EXPECT_EQ(Send(server).reason, "sent") << "and so does the next one";
}

TEST(SmtpSender, EachFailureHasItsKindAndSaysWhatTheServerSaid) {
    struct Case {
        SmtpServer::Replies replies;
        MailTrouble kind;
        bool mayPass;
        std::string words;
        Security security = Security::None;
    };
    const Case cases[] = {
        {{{"AUTH", "535 wrong"}}, MailTrouble::Password, false, "535 wrong"},
        {{{"RCPT TO:<bob", "550 No such user"}}, MailTrouble::Refused, false, "550 No such user"},
        {{{"RCPT", "451 come again"}}, MailTrouble::Refused, true, "451 come again"},
        {{{".", "554 spam"}}, MailTrouble::Refused, false, "554 spam"},
        {{{"", "421 busy"}}, MailTrouble::Refused, true, "421 busy"},
        {{}, MailTrouble::Encryption, false, "no encryption", Security::StartTls},
    };
    for (const Case& test : cases) {
        const SmtpServer server(test.replies);
        const MailFailure failure = Send(server, test.security);
        EXPECT_EQ(failure.kind, test.kind) << failure.reason;
        EXPECT_EQ(failure.mayPass, test.mayPass) << failure.reason;
        EXPECT_NE(failure.reason.find(test.words), std::string::npos) << failure.reason;
        if (test.security != Security::None) {
            EXPECT_EQ(server.Heard().find("AUTH"), std::string::npos)
                << "the password went over an open line";
        }
    }
}

TEST(SmtpSender, NeverWaitsForEver) {
    const SmtpServer silent(SmtpServer::Replies{{"MAIL", ""}});
    const MailFailure late = Send(silent, Security::None, std::chrono::seconds(1));
    EXPECT_EQ(late.kind, MailTrouble::Connection) << late.reason;
    EXPECT_TRUE(late.mayPass);

    std::stop_source stop;
    const std::jthread ending([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        stop.request_stop();
    });
    const MailFailure ended = Send(silent, Security::None, std::chrono::seconds(60), stop.get_token());
    EXPECT_EQ(ended.kind, MailTrouble::ProgramEnd) << ended.reason;
}

}  // namespace kaz
