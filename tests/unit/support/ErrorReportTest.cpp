#include "support/ErrorReport.h"

#include "fakes/Matchers.h"

using namespace kaz;

namespace {

ErrorReport Sample() {
    return {"KAZ",        "1.0.0",   "Windows 11", "bugs@example.org", "C:\\My KAZ\\Log.txt",
            "50% & why?", "a \"b\"", "1, #x\r\n"};
}

}  // namespace

TEST(ErrorReport, EveryPartOfTheMailLinkIsEscapedOnce) {
    EXPECT_EQ(
        Sample().MailLink(),
        "mailto:bugs@example.org?subject=Bug%20Report%20(KAZ%20-%201.0.0)"
        "&body=Error%20Report:%20KAZ%201.0.0%20Windows%2011%20(Please%20click%20Attach%20and%20add%20the"
        "%20file%20C:\\My%20KAZ\\Log.txt)%0D%0AUser:%20a%20%22b%22%0D%0A50%25%20%26%20why%3F%0D%0A"
        "1,%20%23x%0D%0A&attachment=C:\\My%20KAZ\\Log.txt");
    EXPECT_EQ(ErrorReport::MakeClean("%20%\n\xE9"), "%2520%25%0A\xE9");
}

TEST(ErrorReport, ALinkIsNeverTooLongForTheSystem) {
    ErrorReport report = Sample();
    for (const std::size_t lines : {20U, 100U, 10000U}) {
        report.log.clear();
        for (std::size_t line = 1; line <= lines; ++line)
            report.log += "line " + std::to_string(line) + " & more\r\n";
        const std::string link = report.MailLink().value_or("");
        EXPECT_LE(link.size(), ErrorReport::kLongestLink);
        EXPECT_THAT(link, HasSubstr("line%20" + std::to_string(lines) + "%20%26%20more%0D%0A&attachment="));
        EXPECT_EQ(lines > 20, link.find("The%20end%20of%20the%20log") != std::string::npos);
    }
    report.log = std::string(5000, 'x');
    EXPECT_THAT(report.MailLink().value_or(""), Not(HasSubstr("xxx")));
    report.userMessage = std::string(1990, ' ');
    EXPECT_FALSE(report.MailLink());
}

TEST(ErrorReport, AsTextHasAllOfItAndSaysWhereToSendIt) {
    ErrorReport report = Sample();
    EXPECT_THAT(report.AsText(),
                StartsWith("Error Report: KAZ 1.0.0, Windows 11\r\n50% & why?\r\na \"b\"\r\n1, #x\r\n-----"));
    EXPECT_THAT(report.AsText(),
                HasSubstr("to 'bugs@example.org' and paste the following text into it.\r\n"));
    EXPECT_THAT(report.AsText(), EndsWith("\r\n" + std::string(75, '-') + "\r\n"));
    report.userMessage.clear();
    EXPECT_THAT(report.AsText(), HasSubstr("why?\r\n1, #x"));
}
