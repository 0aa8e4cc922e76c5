#include "platform/posix/PosixFileSystem.h"

#include "fakes/ErrorOf.h"
#include "fakes/TestFolder.h"
#include "platform/Files.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixRandom.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <ctime>

namespace kaz {
namespace {

class PosixFileSystemTest : public testing::Test {
protected:
    // A path as the program has it.
    std::string In(const std::string& name) const {
        std::string path = folder.Path().string() + "\\" + name;
        std::replace(path.begin(), path.end(), '/', '\\');
        return path;
    }
    std::string Native(const std::string& name) const { return (folder.Path() / name).string(); }

    TestFolder folder;
    PosixFileSystem files;
};

TEST_F(PosixFileSystemTest, NamesThatCannotBe) {
    folder.Write("file", "old");
    EXPECT_EQ(ErrorOf([&] { files.Create(In("file\\no")); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(In("file\\a")); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.Create(In("")); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Create(In(std::string(300, 'x'))); }), 75);
    EXPECT_EQ(ErrorOf([&] { files.Create(In(std::string("file\0x", 6))); }), 75);
    EXPECT_EQ(files.Kind(In("file\\no")), PathKind::Missing);
    EXPECT_EQ(folder.Read("file"), "old");
}

TEST_F(PosixFileSystemTest, AFullDiskIsToldAndWhatFitsDoesNotHideIt) {
    EXPECT_EQ(ErrorOf([&] { files.Create("\\dev\\full")->Write("x"); }), 61);
    struct rlimit old {};
    ::getrlimit(RLIMIT_FSIZE, &old);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small { 10, old.rlim_max };
    ::setrlimit(RLIMIT_FSIZE, &small);
    const int error = ErrorOf([&] { files.Create(In("limited"))->Write("0123456789abcdef"); });
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, 61);
    EXPECT_EQ(folder.Read("limited"), "0123456789");
}

TEST_F(PosixFileSystemTest, AReadOnlyFileIsNotOpenedForWriting) {
    folder.Write("file", "old");
    ::chmod(Native("file").c_str(), 0444);
    EXPECT_EQ(ErrorOf([&] { files.Create(In("file")); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.OpenForAppending(In("file")); }), 70);
    EXPECT_EQ(folder.Read("file"), "old");
}

TEST_F(PosixFileSystemTest, APipeInThePlaceOfAFileIsAnErrorAndNoWait) {
    ASSERT_EQ(::mkfifo(Native("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.Kind(In("pipe")), PathKind::Other);
    EXPECT_EQ(ErrorOf([&] { ReadFileOrEmpty(files, In("pipe")); }), 75);
    EXPECT_EQ(ErrorOf([&] { WriteWholeFile(files, In("pipe"), "x"); }), 75);
}

TEST_F(PosixFileSystemTest, ModificationTimesAreExactTo100Nanoseconds) {
    folder.Write("file", "x");
    const auto timeAt = [&](std::time_t seconds, long nanoseconds) {
        const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
        ::utimensat(AT_FDCWD, Native("file").c_str(), times, 0);
        return files.ModificationTime(In("file")).value_or(0);
    };
    EXPECT_EQ(timeAt(0, 0), 116444736000000000);
    EXPECT_EQ(timeAt(1'700'000'000, 123'456'700) - timeAt(1'700'000'000, 123'456'600), 1);
    EXPECT_EQ(timeAt(1'700'000'001, 0) - timeAt(1'700'000'000, 0), 10'000'000);
}

TEST(PosixServices, ClockAndRandom) {
    const PosixClock clock;
    const std::time_t before = std::time(nullptr);
    const DateValue now = clock.Now();
    std::tm local{};
    ::localtime_r(&before, &local);
    const DateValue expected(
        DateValue::FromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).Day(),
        (local.tm_hour * 60 + local.tm_min) * 60 + std::min(local.tm_sec, 59));
    EXPECT_GE(now, expected);
    EXPECT_LE(now, expected.PlusMinutes(1));
    EXPECT_LT(clock.SecondsSinceMidnight(), 86400.0);

    // Two draws after the same seed differ, as they must when two codes are drawn within one tick of the
    // clock.
    PosixRandom random;
    random.Seed(1.5);
    const double first = random.Next();
    random.Seed(1.5);
    EXPECT_NE(random.Next(), first);
    EXPECT_GE(first, 0.0);
    EXPECT_LT(first, 1.0);
}

}  // namespace
}  // namespace kaz
