#include "core/cSHAREDZipFiles.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Keeps what it was given and answers as the test says.
class FakeZipArchiver : public ZipArchiver {
public:
    bool ZpInit() noexcept override { return available; }
    bool ZpSetOptions(const ZipOptions& wanted) noexcept override {
        options = wanted;
        return true;
    }
    int ZpArchive(const std::string& name, const std::vector<std::string>& fileNames) noexcept override {
        archive = name;
        files = fileNames;
        return result;
    }
    std::string ZpRead(const std::string&, const std::string&) noexcept override { return {}; }
    std::string LastMessage() const override { return "told"; }

    bool available = true;
    int result = kZipSuccess;
    ZipOptions options;
    std::string archive;
    std::vector<std::string> files;
};

std::string Failure(const std::function<void()>& action) {
    try {
        action();
    } catch (const ZipListError& error) {
        return error.Source() + ": " + error.Description();
    }
    return "";
}

TEST(ZipFiles, HandsOverTheListWithoutItsPlaceholder) {
    FakeZipArchiver archiver;
    cSHAREDZipFiles zip(archiver);
    zip.Setup();
    zip.ZipFileName("C:\\a.zip");
    EXPECT_EQ(zip.ZipFileCount(), 0);
    zip.AddFile("C:\\one.xml");
    zip.AddFile("C:\\two.xml");
    zip.AddFile("C:\\three.xml");
    zip.RemoveFile("c:\\TWO.xml");
    EXPECT_EQ(zip.ZipFileCount(), 2);
    zip.IgnorePath = true;

    EXPECT_EQ(zip.MakeZipFile(), 0);
    EXPECT_EQ(archiver.archive, "C:\\a.zip");
    EXPECT_THAT(archiver.files, ElementsAre("C:\\one.xml", "C:\\three.xml"));
    EXPECT_TRUE(archiver.options.ignorePath);
    EXPECT_FALSE(archiver.options.encrypted);
    EXPECT_EQ(archiver.options.rootDirectory, "\\");
    EXPECT_EQ(zip.GetLastMessage(), "told");

    archiver.result = kZipWriteFailed;
    EXPECT_EQ(zip.MakeZipFile(), kZipWriteFailed);
    EXPECT_FALSE(zip.Zip());
    archiver.available = false;
    archiver.archive.clear();
    EXPECT_EQ(zip.MakeZipFile(), kZipNotAvailable);
    EXPECT_EQ(archiver.archive, "");

    zip.Setup();
    EXPECT_EQ(zip.ZipFileCount(), 0);
    EXPECT_FALSE(zip.IgnorePath);
}

TEST(ZipFiles, HoldsAFileOnce) {
    FakeZipArchiver archiver;
    cSHAREDZipFiles zip(archiver);
    zip.AddFile("C:\\one.xml");
    EXPECT_EQ(Failure([&] { zip.AddFile("C:\\ONE.XML"); }), "CGZip::AddFile: File is already in Zip List");
    EXPECT_EQ(Failure([&] { zip.AddFile("querty"); }), "CGZip::AddFile: File is already in Zip List");
    EXPECT_EQ(Failure([&] { zip.RemoveFile("C:\\two.xml"); }), "CGZip::RemoveFile: File is not in Zip List");
    EXPECT_EQ(Failure([&] { zip.RemoveFile("querty"); }), "CGZip::RemoveFile: File is not in Zip List");
    EXPECT_EQ(zip.ZipFileCount(), 1);
}

}  // namespace
}  // namespace kaz
