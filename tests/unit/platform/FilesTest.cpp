#include "platform/Files.h"

#include "fakes/ErrorOf.h"
#include "fakes/Matchers.h"
#include "fakes/MemoryFileSystem.h"
#include "fakes/TestData.h"
#include "platform/SafeFileWriter.h"

namespace kaz {
namespace {

constexpr const char* kFile = "C:\\KAZ\\Events.xml";

TEST(Files, PathsAreTakenApartAndPutTogether) {
    for (const auto& row : GoldenTable("paths.txt")) {
        EXPECT_EQ(FolderOf(row[0]), row.at(1)) << row[0];
        EXPECT_EQ(FileNameOf(row[0]), row.at(2)) << row[0];
        EXPECT_EQ(WithExtension(row[0], ".txt"), row.at(3)) << row[0];
    }
    EXPECT_EQ(JoinPath("C:\\", "a"), "C:\\a");
    EXPECT_EQ(JoinPath("C:\\KAZ", "a"), "C:\\KAZ\\a");
    EXPECT_EQ(WithoutTrailingBackslash("C:\\"), "C:\\");
    EXPECT_EQ(WithoutTrailingBackslash("C:\\KAZ\\\\"), "C:\\KAZ");
    EXPECT_EQ(WithoutTrailingBackslash("\\"), "\\");
}

// The one promise of saving: whatever fails, wherever, there is the old file or the new one and nothing else.
TEST(SafeFileWriter, AnyFailureLeavesTheOldFileWhole) {
    using Lasts = FaultInjector::Lasts;
    for (const Lasts lasts : {Lasts::Once, Lasts::FromThenOn}) {
        bool struck = true;
        for (int n = 1; struck; ++n) {
            MemoryFileSystem files;
            files.Put(kFile, "old");
            files.faults.FailAt(n, ErrorNumber::DiskFull, lasts);
            const int error = ErrorOf([&] { WriteWholeFile(files, kFile, "new"); });
            struck = files.faults.Struck();
            EXPECT_EQ(error, struck ? 61 : 0) << n;
            EXPECT_EQ(files.Text(kFile), struck ? "old" : "new") << n;
            EXPECT_EQ(files.OpenFiles(), 0);
            if (lasts == Lasts::Once) {
                EXPECT_THAT(files.Files(), ElementsAre(kFile)) << n;
            }
            files.LosePower();
            EXPECT_EQ(files.Text(kFile), struck ? "old" : "new") << "not flushed before it took its place";
        }
    }
}

// As two programs that share a folder do; the later one wins, and neither gets the other's bytes.
TEST(SafeFileWriter, TwoWritersOfOneFileDoNotMix) {
    MemoryFileSystem files;
    files.Put(kFile, "old");
    SafeFileWriter first(files, kFile);
    first.Write("fir");
    SafeFileWriter second(files, kFile);
    second.Write("second");
    first.Write("st");
    first.Commit();
    EXPECT_EQ(files.Text(kFile), "first");
    second.Commit();
    EXPECT_EQ(files.Text(kFile), "second");
    EXPECT_THAT(files.Files(), ElementsAre(kFile));
}

TEST(Files, AreReadWholeOrNotAtAll) {
    MemoryFileSystem files;
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(files, kFile); }), 76);
    EXPECT_EQ(ReadFileOrEmpty(files, kFile), "");
    const std::string large(200'000, '\0');
    files.Put(kFile, large);
    EXPECT_EQ(ReadWholeFile(files, "c:/kaz/EVENTS.XML"), large);
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(files, "C:\\KAZ\\no"); }), 53);
    EXPECT_EQ(ErrorOf([&] { ReadFileOrEmpty(files, "C:\\KAZ"); }), 75);
    files.At(kFile).locked = true;
    EXPECT_EQ(ErrorOf([&] { ReadFileOrEmpty(files, kFile); }), 70) << "a locked file is not an empty one";
    EXPECT_FALSE(FileExists(files, ""));
    EXPECT_FALSE(FileExists(files, "C:\\KAZ"));
    EXPECT_TRUE(FolderExists(files, "C:\\KAZ\\"));
    EXPECT_EQ(files.OpenFiles(), 0);
}

}  // namespace
}  // namespace kaz
