#include "hosts/kaz2/mail/Postman.h"

#include "hosts/kaz2/mail/MailNews.h"

#include <gtest/gtest.h>

#include <future>

namespace kaz {

namespace {

using namespace std::chrono_literals;

// What has happened, one line each, and the key to the mail program that is stuck.
struct Record {
    std::mutex mutex;
    std::string text;
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    void Add(const std::string& line) {
        const std::lock_guard lock(mutex);
        text += line + "\n";
    }
    std::string Text() {
        const std::lock_guard lock(mutex);
        return text;
    }
};

// A mail's subject says what is to happen to it.
struct Way final : MailSender {
    explicit Way(std::shared_ptr<Record> to) : record(std::move(to)) {}
    void Send(const Mail& mail, const std::stop_token&) override {
        const bool isFirst = record->Text().find("try " + mail.subject) == std::string::npos;
        record->Add("try " + mail.subject);
        if (mail.subject == "stuck") record->released.wait();
        if (mail.subject == "refused") throw MailFailure{MailTrouble::Refused, "No\nthanks."};
        if (mail.subject == "full") throw MailFailure{MailTrouble::Refused, "Full."};
        if (mail.subject == "cancelled") throw MailFailure{MailTrouble::Cancelled, "You said no."};
        if (mail.subject == "offline" || (mail.subject == "late" && isFirst))
            throw MailFailure{MailTrouble::Connection, "No line.", true};
    }
    std::shared_ptr<Record> record;
};

struct Postmen : testing::Test {
    std::shared_ptr<Record> record = std::make_shared<Record>();
    std::shared_ptr<MailNews> news =
        std::make_shared<MailNews>([to = record](const std::string& line) { to->Add(line); },
                                   [to = record](const std::string& text) { to->Add("SHOW " + text); });
    std::unique_ptr<Postman> postman = With({10ms, 10ms});

    std::unique_ptr<Postman> With(std::vector<std::chrono::milliseconds> pauses) const {
        return std::make_unique<Postman>([to = record] { return std::make_unique<Way>(to); }, news,
                                         Postman::Rules{4, std::move(pauses)});
    }
    void Post(std::initializer_list<const char*> subjects) const {
        for (const char* subject : subjects)
            postman->Post({"ann", subject, "Tea\r\nat 5"});
    }
    bool Eventually(const std::string& words) const {
        for (int attempt = 0; attempt < 500; ++attempt, std::this_thread::sleep_for(5ms))
            if (record->Text().find(words) != std::string::npos) return true;
        return false;
    }
};

TEST_F(Postmen, SendInOrderAndTellEachKindOfFailureOnce) {
    Post({"one", "refused", "refused", "cancelled"});
    EXPECT_TRUE(postman->Finish(5s));
    EXPECT_EQ(record->Text(),
              "try one\nMail sent to ann: one, Tea at 5\n"
              "try refused\nNo thanks.\nSHOW No\nthanks.\nMail NOT SENT to ann: refused, Tea at 5\n"
              "try refused\nMail NOT SENT to ann: refused, Tea at 5\n"
              "try cancelled\nYou said no.\nMail NOT SENT to ann: cancelled, Tea at 5\n");
    Post({"after the end"});
    EXPECT_TRUE(Eventually("NOT SENT to ann: after the end"));
}

TEST_F(Postmen, ComeAgainWhenItMayPassAndLetOthersGoFirst) {
    Post({"late"});
    EXPECT_TRUE(Eventually("No line.\nMail not sent yet, will be tried again, to ann: late"));
    EXPECT_TRUE(Eventually("Mail sent to ann: late"));
    EXPECT_EQ(record->Text().find("SHOW"), std::string::npos) << "what passed was nobody's trouble";
    Post({"offline", "one"});
    EXPECT_TRUE(Eventually("SHOW No line.\nMail NOT SENT to ann: offline"));
    EXPECT_LT(record->Text().find("try one"), record->Text().rfind("try offline"));
    Post({"refused", "full"});
    EXPECT_TRUE(Eventually("\nFull.\nMail NOT SENT to ann: full")) << "another reason, but not shown again";
}

TEST_F(Postmen, LoseNothingSilentlyAtTheEnd) {
    postman = With({1h});
    postman->Post({"ann", "late", ""});
    EXPECT_TRUE(Eventually("will be tried again"));
    EXPECT_TRUE(postman->Finish(5s));
    EXPECT_TRUE(Eventually("Mail sent to ann: late")) << "a last attempt, however long the pause was to be";

    postman = With({});
    Post({"stuck"});
    EXPECT_TRUE(Eventually("try stuck"));
    Post({"1", "2", "3", "4", "5"});
    EXPECT_TRUE(Eventually("SHOW Too many mails are waiting.\nMail NOT SENT to ann: 5"));
    EXPECT_FALSE(postman->Finish(10ms)) << "a mail program that asks a person is not waited for";
    for (const char* subject : {"stuck", "1", "2", "3", "4"})
        EXPECT_TRUE(Eventually(std::string("NOT SENT to ann: ") + subject));
    record->release.set_value();
    for (int attempt = 0; attempt < 100 && !postman->Finish(0s); ++attempt)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(record->Text().find("Mail sent to ann: stuck"), std::string::npos) << "each mail has one end";
}

}  // namespace
}  // namespace kaz
