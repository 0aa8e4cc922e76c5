#include "hosts/kaz2/mail/MailMessage.h"

#include "fakes/TestData.h"
#include "hosts/kaz2/mail/MailAddresses.h"
#include "hosts/kaz2/mail/MailText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace kaz {

namespace {

const MailStamp kStamp{std::chrono::sys_seconds(std::chrono::seconds(1709251199)), "1a2b"};

// As a reader of mail undoes it: "=C3" to bytes, soft line breaks gone.
std::string Unquoted(std::string_view text) {
    std::string plain;
    for (; !text.empty(); text.remove_prefix(1)) {
        if (text.starts_with("=\r\n")) {
            text.remove_prefix(2);
        } else if (text.front() == '=') {
            plain += static_cast<char>(std::stoi(std::string(text.substr(1, 2)), nullptr, 16));
            text.remove_prefix(2);
        } else {
            plain += text.front();
        }
    }
    return plain;
}

std::string WordsOf(std::string header) {
    std::string plain;
    std::istringstream lines(header);
    for (std::string word; lines >> word;) {
        EXPECT_LE(word.size(), 75u);
        EXPECT_TRUE(word.starts_with("=?UTF-8?Q?") && word.ends_with("?=")) << word;
        word = word.substr(10, word.size() - 12);
        std::ranges::replace(word, '_', ' ');
        EXPECT_EQ(word.find('?'), std::string::npos);
        const std::string part = Unquoted(word);
        EXPECT_NE(static_cast<unsigned char>(part.front()) & 0xC0, 0x80) << "a character is torn apart";
        plain += part;
    }
    return plain;
}

}  // namespace

TEST(MailMessage, IsWhatServersAndReadersExpect) {
    EXPECT_EQ(MailMessage({"", "KAZ Alert - Event 3", "Dentist at 10:00"}, "me@example.org",
                          {"ann@example.org", "bob@example.com"}, kStamp),
              GoldenFile("mail.eml"));
    EXPECT_NE(MailStamp::Now().unique, MailStamp::Now().unique);
}

TEST(MailMessage, NoTextBecomesALineOfTheHead) {
    const std::string message = MailMessage({"", "Hi\r\nBcc: eve@example.org\n\nBody", ""}, "me@example.org",
                                            {"ann@example.org"}, kStamp);
    EXPECT_NE(message.find("Subject: Hi Bcc: eve@example.org  Body\r\n"), std::string::npos) << message;
    EXPECT_TRUE(message.ends_with("quoted-printable\r\n\r\n")) << message;
}

TEST(MailMessage, EveryTextComesBackAsItWas) {
    const std::string umlauts = "Gr\xC3\xBC\xC3\x9F"
                                "e f\xC3\xBCr M\xC3\xBCller";
    const std::string party = "\xF0\x9F\x8E\x89";
    std::string parties;
    for (int count = 0; count < 300; ++count)
        parties += party;
    for (const std::string& text : {umlauts, parties, "x" + parties, std::string(5000, 'w'),
                                    std::string("=?UTF-8?Q?trap?="), std::string("a=b_c?") + party})
        EXPECT_EQ(WordsOf(HeaderText(text)), text);

    for (const std::string& text :
         {umlauts, parties, std::string(5000, 'w'), std::string(200, ' '),
          std::string("two  blanks at the end  "), std::string("tab\t"), std::string(".\r\n..\r\n.a"),
          std::string("=3D\r\n\r\n\r\nlast"), std::string("\0x", 2)}) {
        const std::string quoted = QuotedPrintable(text);
        EXPECT_EQ(Unquoted(quoted), text + "\r\n");
        std::istringstream lines(quoted);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 77u);
            EXPECT_FALSE(line.ends_with(" \r") || line.ends_with("\t\r")) << "servers cut blanks off";
            EXPECT_TRUE(std::ranges::all_of(line, [](char c) { return c > 0; }));
        }
    }
    EXPECT_EQ(QuotedPrintable("one\ntwo\rthree\r\n\nfive"), "one\r\ntwo\r\nthree\r\n\r\nfive\r\n");
}

TEST(MailAddresses, AreTakenOutOfWhatPeopleType) {
    using List = std::vector<std::string>;
    EXPECT_EQ(AddressesOf(" ann@example.org ;Bob <bob@example.com>;; ann@example.org, c@d "),
              (List{"ann@example.org", "bob@example.com", "c@d"}));
    for (const char* bad : {"", " ; ,", "ann", "@b", "a@", "a@b@c", "a b@c", "a@b\r\nDATA",
                            "a@b>\nRCPT TO:<x@y", "J\xC3\xBCrgen@example.org", "ann@example.org;bob"})
        try {
            AddressesOf(bad);
            ADD_FAILURE() << bad;
        } catch (const MailFailure& failure) {
            EXPECT_EQ(failure.kind, MailTrouble::Recipients);
            EXPECT_EQ(failure.reason.find('\n'), std::string::npos);
        }
}

}  // namespace kaz
