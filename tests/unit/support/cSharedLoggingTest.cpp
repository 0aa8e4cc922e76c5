#include "support/cSharedLogging.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeSystemInfo.h"
#include "fakes/Matchers.h"
#include "fakes/MemoryFileSystem.h"
#include "support/cSHAREDShowError.h"

#include <array>
#include <memory>
#include <stdexcept>

namespace kaz {
namespace {

constexpr const char* kLog = "C:\\KAZ\\log.txt";

class LoggingTest : public testing::Test {
protected:
    LoggingTest() {
        files.CreateFolder("C:\\KAZ");
        clock.Set(2023, 3, 15, 9, 5, 7);
        log->ApplicationFolder("C:\\KAZ");
    }

    MemoryFileSystem files;
    FakeClock clock;
    FakeSystemInfo system;
    std::unique_ptr<cSharedLogging> log =
        std::make_unique<cSharedLogging>(files, clock, system, cSharedLogging::About{"KAZ", "1.2.3"});
};

TEST_F(LoggingTest, LinesAndANewLog) {
    EXPECT_EQ(log->CurrentLogFilename(), "");
    log->LogEvent("first");
    EXPECT_EQ(log->CurrentLogFilename(), kLog);
    clock.Set(2023, 3, 15, 23, 59, 59);
    log->LogEvents(std::array<std::string, 2>{"second", ""});
    EXPECT_EQ(files.Text(kLog), "1 09:05:07, first\r\n1 23:59:59, second\r\n1 23:59:59, \r\n");

    clock.Set(2023, 3, 16);
    log->LogEvent("KAZ Startup", true);
    EXPECT_EQ(files.Text(kLog), "1 00:00:00, Log file created \r\n"
                                "1 00:00:00, Operating System: Test System 1.0\r\n"
                                "1 00:00:00, App: KAZ\r\n"
                                "1 00:00:00, Version: 1.2.3\r\n"
                                "1 00:00:00, Curdir: C:\\KAZ\r\n"
                                "1 00:00:00, App path: C:\\KAZ\r\n"
                                "1 00:00:00, KAZ Startup\r\n");
    EXPECT_EQ(files.OpenFiles(), 0);
    log->LogToFile("C:\\KAZ\\long.txt", std::string(1'000'000, 'x'), false);
    EXPECT_EQ(files.Text("C:\\KAZ\\long.txt"), "1 00:00:00, " + std::string(1982, 'x') + " [cut]\r\n");
}

TEST_F(LoggingTest, ALogThatCannotBeReplacedIsContinued) {
    files.Put(kLog, "old\r\n");
    files.faults.FailAt(1, ErrorNumber::PermissionDenied);  // the deletion
    log->LogEvent("new", true);
    EXPECT_EQ(files.Text(kLog), "old\r\n1 09:05:07, new\r\n");
    files.At(kLog).locked = true;
    log->LogEvent("lost", true);
    log->LogError({6, "Overflow"}, "p", "m");
    EXPECT_EQ(files.Text(kLog), "old\r\n1 09:05:07, new\r\n");
}

TEST_F(LoggingTest, TheFolderOfTheLogHasToExist) {
    files.CreateFolder("D:\\Logs");
    log->OverrideLogFilename("D:\\Logs\\a.txt");
    EXPECT_EQ(log->CurrentLogFilename(), "D:\\Logs\\a.txt");
    log->OverrideLogFilename("D:\\Nowhere\\Log_KAZ.txt");
    EXPECT_EQ(log->CurrentLogFilename(), "C:\\KAZ\\Log_KAZ.txt");
    log->OverrideLogFilename("bare.txt");
    EXPECT_EQ(log->CurrentLogFilename(), "C:\\KAZ\\bare.txt");
}

TEST_F(LoggingTest, TheTrailIsWrittenInBatchesAfterAnErrorAndAtTheEnd) {
    for (int i = 0; i < 20; ++i) {
        log->AddAction("step " + std::to_string(i), i % 2 == 0 ? "Proc" : "", i % 3 == 0 ? "clsX" : "");
        clock.AdvanceMinutes(1);
    }
    EXPECT_TRUE(files.Files().empty());
    EXPECT_EQ(log->CurrentAction(), "step 19");
    log->AddDebug("last", "", "");
    EXPECT_EQ(log->CurrentAction(), "");
    const std::string text = files.Text(kLog);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 21);
    EXPECT_THAT(text, StartsWith("1 09:05:07, step 0 in Proc of module clsX\r\n1 09:06:07, step 1\r\n"
                                 "1 09:07:07, step 2 in Proc\r\n1 09:08:07, step 3 of module clsX\r\n"));
    EXPECT_EQ(files.written, 1) << "one opening for the whole batch";

    log->AddAction("before", "", "");
    log->LogError({13, "Type mismatch"}, "LoadDB", "clsDbXml");
    log->AddDebug("left", "Quit", "");
    log.reset();
    EXPECT_EQ(files.Text(kLog), text + "1 09:25:07, Error 13 (Type mismatch) in LoadDB of clsDbXml\r\n"
                                       "1 09:25:07, before\r\n1 09:25:07, DBG: left in Quit\r\n");
}

TEST_F(LoggingTest, NothingIsDoneWhileLoggingIsOff) {
    files.Put(kLog, "old");
    log->NOLOGGING(true);
    log->LogEvent("x", true);
    log->LogEvents(std::array<std::string, 1>{"x"});
    log->LogToFile("C:\\KAZ\\other.txt", "x", true);
    log->LogError({6, "Overflow"}, "p", "m");
    for (int i = 0; i < 30; ++i)
        log->AddAction("x", "", "");
    log->OverrideLogFilename("C:\\KAZ\\other.txt");
    log.reset();
    EXPECT_EQ(files.Text(kLog), "old");
    EXPECT_EQ(files.Files().size(), 1U);
}

TEST_F(LoggingTest, ATrailThatCannotBeWrittenDoesNotGrowForEver) {
    files.Put(kLog, "");
    files.At(kLog).locked = true;
    for (int i = 0; i < 100; ++i)
        log->AddAction(std::to_string(i), "", "");
    files.At(kLog).locked = false;
    log->WriteActionsToLog();
    EXPECT_EQ(files.Text(kLog).find("1 09:05:07, 84\r\n"), 0U);
}

TEST_F(LoggingTest, ErrorsAreLoggedAndShownOnce) {
    cSHAREDShowError errors(*log);
    errors.ShowErrObj({6, "Overflow"}, "cmdSave_Click", "frmEvent");
    std::vector<std::string> shown;
    errors.ShowThrough([&](const std::string& text, const std::string& extra) {
        EXPECT_THAT(files.Text(kLog), HasSubstr("Error 53 (File not found)")) << "the report shows the log";
        shown.push_back(text + "|" + extra);
        errors.Report({7, "inside"}, "Form_Load", "fSHAREDErrorRpt");
        throw std::runtime_error("no window");
    });
    ErrorTrap trap(errors, "ShowMain", "clsComponent");
    trap([] { throw RuntimeError(ErrorNumber::FileNotFound); });
    errors.ShowErr("plain", "more");
    EXPECT_THAT(shown, ElementsAre("Error 53 - File not found in ShowMain of clsComponent|", "plain|more"));
    const std::string text = files.Text(kLog);
    EXPECT_THAT(text, StartsWith("1 09:05:07, Error 6 (Overflow) in cmdSave_Click of frmEvent\r\n"));
    EXPECT_THAT(text, HasSubstr("Error 7 (inside) in Form_Load of fSHAREDErrorRpt\r\n"));
    EXPECT_THAT(text, HasSubstr("Error 51 (no window) in ShowErrObj of cSHAREDShowError\r\n"));
}

}  // namespace
}  // namespace kaz
