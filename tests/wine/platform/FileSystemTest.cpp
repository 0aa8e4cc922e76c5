#include "fakes/ErrorOf.h"
#include "fakes/TestFolder.h"
#include "platform/Files.h"
#include "platform/win32/Win32FileSystem.h"
#include "win32/Handles.h"
#include "win32/Text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

namespace kaz {
namespace {

class FileSystemTest : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return JoinPath(folder, name); }
    void Put(const std::string& name, std::string_view text) { WriteWholeFile(files, Path(name), text); }
    FileHandle Hold(const std::string& name, DWORD share) {
        return FileHandle(
            CreateFileW(ToWide(Path(name)).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }

    TestFolder place;
    Win32FileSystem files;
    std::string folder = place.Path().string();
};

TEST_F(FileSystemTest, NamesMayHaveAccents) {
    const char* locale = std::getenv("LC_ALL");
    if (locale && *locale != 'C') GTEST_SKIP() << "Wine needs the locale installed to keep such names";
    AppendText(files, Path("café.log"), "new");
    EXPECT_EQ("new", ReadWholeFile(files, Path("CAFÉ.LOG")));
}

TEST_F(FileSystemTest, WaitsForAFileThatAnotherProgramHoldsForAMoment) {
    Put("a", "old");
    FileHandle held = Hold("a", FILE_SHARE_READ);
    std::thread other([&] {
        Sleep(60);
        held.Reset();
    });
    Put("a", "new");
    other.join();
    EXPECT_EQ("new", ReadWholeFile(files, Path("a")));

    held = Hold("a", 0);
    const ULONGLONG began = GetTickCount64();
    EXPECT_EQ(70, ErrorOf([&] { ReadWholeFile(files, Path("a")); }));
    EXPECT_EQ(70, ErrorOf([&] { Put("a", "other"); }));
    EXPECT_EQ(70, ErrorOf([&] { files.Delete(Path("a")); }));
    EXPECT_LT(GetTickCount64() - began, 3000U);
    EXPECT_EQ(PathKind::File, files.Kind(Path("a")));
    held.Reset();
    EXPECT_EQ("new", ReadWholeFile(files, Path("a")));
    EXPECT_EQ(PathKind::Missing, files.Kind(Path("a.new")));
}

TEST_F(FileSystemTest, NamesThatCannotBe) {
    EXPECT_EQ(75, ErrorOf([&] { files.OpenForReading("NUL"); }));
    EXPECT_EQ(75, ErrorOf([&] { files.OpenForReading(Path(std::string("fi\0le", 5))); }));
    EXPECT_EQ(76, ErrorOf([&] { files.OpenForReading(""); }));
}

TEST_F(FileSystemTest, AnUnreachableDriveIsNotTakenForMissingFiles) {
    EXPECT_EQ(PathKind::Missing, files.Kind(Path("none")));
    EXPECT_EQ(PathKind::Missing, files.Kind(Path("none\\none")));
    EXPECT_EQ(PathKind::Missing, files.Kind(""));
    EXPECT_EQ(PathKind::Folder, files.Kind(folder));
    ASSERT_EQ(UINT{DRIVE_NO_ROOT_DIR}, GetDriveTypeW(L"Q:\\"));
    EXPECT_EQ(PathKind::Other, files.Kind("Q:\\KAZ\\Events.xml"));
    EXPECT_FALSE(FileExists(files, "Q:\\KAZ\\Events.xml"));
    EXPECT_EQ(76, ErrorOf([&] { ReadFileOrEmpty(files, "Q:\\KAZ\\Events.xml"); }));
}

TEST_F(FileSystemTest, LongPathsWork) {
    std::string deep = folder;
    while (deep.size() < 400)
        deep = JoinPath(deep, std::string(60, 'x'));
    files.CreateFolder(deep);
    const std::string file = JoinPath(deep, "Events.xml");
    WriteWholeFile(files, file, "one");
    WriteWholeFile(files, file, "two");
    EXPECT_EQ("two", ReadWholeFile(files, file));
    EXPECT_EQ(PathKind::File, files.Kind(file));
    EXPECT_FALSE(files.IsReadOnly(file));
    files.Delete(file);
    EXPECT_EQ(PathKind::Missing, files.Kind(file));
}

TEST_F(FileSystemTest, TheCurrentFolderIsTheProcess) {
    const std::wstring before = ToWide(files.CurrentFolder());
    SetCurrentDirectoryW(ToWide(folder).c_str());
    EXPECT_EQ(PathKind::Folder, files.Kind("."));
    EXPECT_EQ(FileNameOf(folder), FileNameOf(files.CurrentFolder()));
    SetCurrentDirectoryW(L"C:\\");
    EXPECT_EQ("C:\\", files.CurrentFolder());
    SetCurrentDirectoryW(before.c_str());
}

}  // namespace
}  // namespace kaz
