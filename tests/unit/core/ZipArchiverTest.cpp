#include "core/cSHAREDZipFiles.h"
#include "fakes/Matchers.h"
#include "fakes/MemoryFileSystem.h"
#include "fakes/TestFolder.h"
#include "platform/zip/LibzipArchiver.h"
#include "unit/core/ZipReading.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace kaz {
namespace {

constexpr const char* kZip = "C:\\KAZ\\Autobackups\\Wed.zip";

class ZipArchiverTest : public testing::Test {
protected:
    ZipArchiverTest() { files.CreateFolder("C:\\KAZ\\Autobackups"); }

    std::map<std::string, std::string> Archived() const { return Unpacked(files.Text(kZip)); }

    MemoryFileSystem files;
    LibzipArchiver archiver{files};
};

TEST_F(ZipArchiverTest, PacksTheFilesUnderTheirBareNames) {
    std::string everyByte;
    for (int i = 0; i < 40'000; ++i)
        everyByte += static_cast<char>(i * i >> 4);
    const std::string repeated(200'000, 'x');
    files.Put("C:\\KAZ\\Events.xml", everyByte);
    files.Put("C:\\KAZ\\Kaz.ini", repeated);
    files.Put("D:\\Data\\empty.txt", "");

    EXPECT_TRUE(archiver.ZpInit());
    EXPECT_TRUE(archiver.ZpSetOptions({}));
    EXPECT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ\\Events.xml", "C:\\KAZ\\Kaz.ini", "D:\\Data\\empty.txt"}),
              0);

    EXPECT_EQ(archiver.LastMessage(), "");
    EXPECT_THAT(Archived(),
                ElementsAre(Pair("Events.xml", everyByte), Pair("Kaz.ini", repeated), Pair("empty.txt", "")));
    EXPECT_LT(files.Text(kZip).size(), everyByte.size() + repeated.size() / 100);
    EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(ZipArchiverTest, OtherProgramsReadTheArchive) {
    const TestFolder folder;
    const std::string output = " >" + (folder.Path() / "unzip.out").string() + " 2>&1";
    if (std::system(("unzip -v" + output).c_str()) != 0) GTEST_SKIP() << "no unzip on this machine";
    files.Put("C:\\KAZ\\Events.xml", std::string(5000, 'e'));
    ASSERT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ\\Events.xml"}), 0);
    folder.Write("test.zip", files.Text(kZip));
    EXPECT_EQ(std::system(("unzip -tqq " + (folder.Path() / "test.zip").string() + output).c_str()), 0);
}

TEST_F(ZipArchiverTest, KeepsTheTimeOfAFile) {
    files.Put("C:\\KAZ\\old.txt", "o");
    files.Put("C:\\KAZ\\new.txt", "n");
    files.At("C:\\KAZ\\old.txt").time = 0;
    // 15 March 2023, noon, UTC.
    files.At("C:\\KAZ\\new.txt").time = (1'678'881'600 + 11'644'473'600) * FileTime{10'000'000};
    ASSERT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ\\old.txt", "C:\\KAZ\\new.txt"}), 0);
    EXPECT_THAT(TimeInArchive(files.Text(kZip), "old.txt"), HasSubstr("1980-01-0"));
    EXPECT_THAT(TimeInArchive(files.Text(kZip), "new.txt"), HasSubstr("2023-03-1"));
}

TEST_F(ZipArchiverTest, WithoutAnyFileTheOldArchiveStays) {
    files.Put("C:\\KAZ\\Events.xml", "events");
    EXPECT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ\\Events.xml", "E:\\gone\\x"}), 0);
    EXPECT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ\\none.dat"}), kZipNothingToDo);
    EXPECT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ"}), kZipReadFailed);
    EXPECT_THAT(Archived(), ElementsAre(Pair("Events.xml", "events")));
    EXPECT_EQ(archiver.ZpRead(kZip, "events.xml"), "events");
    EXPECT_EQ(archiver.ZpRead(kZip, "none") + archiver.ZpRead("C:\\KAZ\\Events.xml", "Events.xml"), "");
}

TEST_F(ZipArchiverTest, NumbersFilesOfOneName) {
    const std::vector<std::string> names{"C:\\a\\log.txt", "C:\\b\\LOG.TXT", "C:\\c\\log.txt", "C:\\a\\noext",
                                         "C:\\b\\noext"};
    for (const std::string& name : names)
        files.Put(name, name.substr(3, 1));
    EXPECT_EQ(archiver.ZpArchive(kZip, names), 0);
    EXPECT_THAT(Archived(), ElementsAre(Pair("LOG (2).TXT", "b"), Pair("log (3).txt", "c"),
                                        Pair("log.txt", "a"), Pair("noext", "a"), Pair("noext (2)", "b")));
}

// The list begins with an entry that is no file and never counts.
TEST_F(ZipArchiverTest, OfAListTakesEachFileOnceAndNoOptionThatItDoesNotOffer) {
    const auto refusal = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const ZipListError& error) {
            return error.Source() + ": " + error.Description();
        }
        return "";
    };
    files.Put("C:\\KAZ\\one.xml", "1");
    struct Listening : LibzipArchiver {
        using LibzipArchiver::LibzipArchiver;
        int ZpArchive(const std::string& name, const std::vector<std::string>& list) noexcept override {
            heard = list;
            return LibzipArchiver::ZpArchive(name, list);
        }
        std::vector<std::string> heard;
    } listening(files);
    cSHAREDZipFiles zip(listening);
    zip.ZipFileName(kZip);
    EXPECT_FALSE(zip.Zip());
    zip.AddFile("C:\\KAZ\\one.xml");
    for (const char* held : {"C:\\KAZ\\ONE.XML", "querty"})
        EXPECT_EQ(refusal([&] { zip.AddFile(held); }), "CGZip::AddFile: File is already in Zip List");
    for (const char* strange : {"C:\\two.xml", "querty"})
        EXPECT_EQ(refusal([&] { zip.RemoveFile(strange); }), "CGZip::RemoveFile: File is not in Zip List");
    EXPECT_EQ(zip.ZipFileCount(), 1);
    zip.Encrypted = true;
    EXPECT_EQ(zip.MakeZipFile(), kZipBadOptions);
    EXPECT_EQ(files.Kind(kZip), PathKind::Missing);
    zip.Encrypted = false;
    EXPECT_TRUE(zip.Zip());
    EXPECT_THAT(listening.heard, ElementsAre("C:\\KAZ\\one.xml"));
    EXPECT_THAT(Archived(), ElementsAre(Pair("one.xml", "1")));
    files.At("C:\\KAZ\\one.xml").locked = true;
    EXPECT_EQ(zip.MakeZipFile(), kZipReadFailed);
    EXPECT_NE(zip.GetLastMessage(), "");
    zip.RemoveFile("c:\\kaz\\ONE.xml");
    EXPECT_EQ(zip.MakeZipFile(), kZipNothingToDo);
    EXPECT_EQ(zip.GetLastMessage(), "");
    zip.Setup();
    EXPECT_EQ(zip.ZipFileName(), "");
}

TEST_F(ZipArchiverTest, EveryFailureLeavesTheOldArchiveOrTheNewOneWhole) {
    files.Put("C:\\KAZ\\Events.xml", std::string(300'000, 'e'));
    ASSERT_EQ(archiver.ZpArchive(kZip, {"C:\\KAZ\\Events.xml"}), 0);
    const std::string old = files.Text(kZip);
    files.Put("C:\\KAZ\\Kaz.ini", "settings");
    int faults = 0;
    for (;; ++faults) {
        files.faults.FailAt(faults + 1);
        const int result = archiver.ZpArchive(kZip, {"C:\\KAZ\\Events.xml", "C:\\KAZ\\Kaz.ini"});
        if (!files.faults.Struck()) break;
        EXPECT_NE(result, 0) << "fault " << faults;
        EXPECT_THAT(archiver.LastMessage(), HasSubstr("Device I/O error"));
        if (files.Text(kZip) != old) {
            EXPECT_EQ(Archived().size(), 1U) << "fault " << faults;
        }
        EXPECT_EQ(files.Kind(std::string(kZip) + ".new"), PathKind::Missing);
        EXPECT_EQ(files.OpenFiles(), 0);
        files.Put(kZip, old);
    }
    EXPECT_GE(faults, 8);
    files.faults.FailAt(0);
}

}  // namespace
}  // namespace kaz
