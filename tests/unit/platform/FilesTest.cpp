#include "platform/Files.h"

#include "fakes/ErrorOf.h"
#include "fakes/MemoryFileSystem.h"
#include "platform/SafeFileWriter.h"

#include <gmock/gmock.h>

namespace kaz {
namespace {

using testing::ElementsAre;

constexpr const char* kFile = "C:\\KAZ\\Events.xml";

TEST(Files, PathsAreTakenApartAndPutTogether) {
    struct {
        const char* path;
        const char* folder;
        const char* name;
        const char* asText;
    } const cases[] = {{"C:\\KAZ\\a.b.xml", "C:\\KAZ", "a.b.xml", "C:\\KAZ\\a.b.txt"},
                       {"C:\\a", "C:\\", "a", "C:\\a.txt"},
                       {"C:a.ini", "C:", "a.ini", "C:a.txt"},
                       {"a.ini", "", "a.ini", "a.txt"},
                       {"\\a", "\\", "a", "\\a.txt"},
                       {"x.y/a", "x.y", "a", "x.y/a.txt"},
                       {"\\\\server\\share\\", "\\\\server\\share", "", "\\\\server\\share\\.txt"},
                       {"", "", "", ".txt"}};
    for (const auto& [path, folder, name, asText] : cases) {
        EXPECT_EQ(FolderOf(path), folder) << path;
        EXPECT_EQ(FileNameOf(path), name) << path;
        EXPECT_EQ(WithExtension(path, ".txt"), asText) << path;
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

TEST(SafeFileWriter, FullDiskAndProtectedFiles) {
    MemoryFileSystem files;
    files.Put(kFile, "old");
    for (const std::size_t free : {std::size_t{0}, std::size_t{2}}) {
        files.freeBytes = free;
        EXPECT_EQ(ErrorOf([&] { WriteWholeFile(files, kFile, "new"); }), 61);
        EXPECT_THAT(files.Files(), ElementsAre(kFile));
    }
    files.freeBytes.reset();
    files.At(kFile).readOnly = true;
    EXPECT_EQ(ErrorOf([&] { WriteWholeFile(files, kFile, "new"); }), 70);
    files.At(kFile).readOnly = false;
    files.At(kFile).locked = true;
    EXPECT_EQ(ErrorOf([&] { WriteWholeFile(files, kFile, "new"); }), 70);
    files.At(kFile).locked = false;
    files.At("C:\\KAZ").readOnly = true;
    EXPECT_EQ(ErrorOf([&] { WriteWholeFile(files, kFile, "new"); }), 70);
    EXPECT_EQ(files.Text(kFile), "old");
    EXPECT_THAT(files.Files(), ElementsAre(kFile));
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

TEST(Files, ReadingAndAppending) {
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
    AppendText(files, "C:\\KAZ\\log", "a");
    AppendText(files, "C:\\KAZ\\LOG", "b");
    EXPECT_EQ(files.Text("C:\\KAZ\\log"), "ab");
    EXPECT_FALSE(FileExists(files, ""));
    EXPECT_FALSE(FileExists(files, "C:\\KAZ"));
    EXPECT_TRUE(FolderExists(files, "C:\\KAZ\\"));
    EXPECT_EQ(files.OpenFiles(), 0);
}

}  // namespace
}  // namespace kaz
