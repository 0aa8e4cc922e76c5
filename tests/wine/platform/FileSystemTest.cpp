#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Text.h"
#include "platform/win32/Win32FileSystem.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <thread>

namespace kaz {
namespace {

class FileSystemTest : public testing::Test {
protected:
    FileSystemTest() {
        wchar_t temporary[MAX_PATH];
        GetTempPathW(MAX_PATH, temporary);
        folder = JoinPath(ToCodePage(temporary), "kaz" + std::to_string(GetCurrentProcessId()) + "." +
                                                     std::to_string(GetTickCount64()));
        files.CreateFolder(folder);
    }
    std::string Path(const std::string& name) const { return JoinPath(folder, name); }
    void Put(const std::string& name, std::string_view text) { WriteWholeFile(files, Path(name), text); }
    FileHandle Hold(const std::string& name, DWORD share) {
        return FileHandle(
            CreateFileW(ToWide(Path(name)).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }

    Win32FileSystem files;
    std::string folder;
};

int NumberOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

TEST_F(FileSystemTest, KeepsEveryByteAndAppends) {
    std::string all;
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    Put("all.bin", all);
    AppendText(files, Path("all.bin"), "more");
    EXPECT_EQ(all + "more", ReadWholeFile(files, Path("all.bin")));
    EXPECT_EQ(260U, files.OpenForReading(Path("all.bin"))->Size());
    files.Create(Path("all.bin"))->Close();
    EXPECT_EQ("", ReadWholeFile(files, Path("all.bin")));
}

TEST_F(FileSystemTest, NamesMayHaveAccents) {
    const char* locale = std::getenv("LC_ALL");
    if (locale && *locale != 'C') GTEST_SKIP() << "Wine needs the locale installed to keep such names";
    AppendText(files, Path("caf\xE9.log"), "new");
    EXPECT_EQ("new", ReadWholeFile(files, Path("CAF\xC9.LOG")));
}

TEST_F(FileSystemTest, AnotherTextHasAnotherTime) {
    Put("events.xml", "old");
    const auto before = files.ModificationTime(Path("events.xml"));
    EXPECT_EQ(before, files.ModificationTime(Path("events.xml")));
    Sleep(20);
    Put("events.xml", "new");
    EXPECT_NE(before, files.ModificationTime(Path("events.xml")));
    EXPECT_EQ(std::nullopt, files.ModificationTime(Path("none")));
}

TEST_F(FileSystemTest, AReadOnlyFileStaysAsItIs) {
    Put("a", "old");
    Put("b", "new");
    SetFileAttributesW(ToWide(Path("a")).c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(files.IsReadOnly(Path("a")));
    EXPECT_FALSE(files.IsReadOnly(Path("b")));
    EXPECT_FALSE(files.IsReadOnly(folder));
    EXPECT_EQ(70, NumberOf([&] { files.Replace(Path("b"), Path("a")); }));
    EXPECT_EQ(70, NumberOf([&] { files.Delete(Path("a")); }));
    EXPECT_EQ(70, NumberOf([&] { Put("a", "other"); }));
    EXPECT_EQ("old", ReadWholeFile(files, Path("a")));
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
    EXPECT_EQ(70, NumberOf([&] { ReadWholeFile(files, Path("a")); }));
    EXPECT_EQ(70, NumberOf([&] { Put("a", "other"); }));
    EXPECT_EQ(70, NumberOf([&] { files.Delete(Path("a")); }));
    EXPECT_LT(GetTickCount64() - began, 3000U);
    EXPECT_EQ(PathKind::File, files.Kind(Path("a")));
    held.Reset();
    EXPECT_EQ("new", ReadWholeFile(files, Path("a")));
    EXPECT_EQ(PathKind::Missing, files.Kind(Path("a.new")));
}

TEST_F(FileSystemTest, TellsWhatIsWrongByTheClassicNumbers) {
    Put("file", "x");
    files.CreateFolder(Path("folder"));
    const struct {
        int number;
        std::function<void()> step;
    } cases[] = {
        {53, [&] { files.OpenForReading(Path("none")); }},
        {76, [&] { files.OpenForReading(Path("none\\none")); }},
        {75, [&] { files.OpenForReading(Path("folder")); }},
        {75, [&] { files.OpenForReading("NUL"); }},
        {75, [&] { files.OpenForReading(Path(std::string("fi\0le", 5))); }},
        {76, [&] { files.OpenForReading(""); }},
        {75, [&] { files.Create(Path("folder")); }},
        {76, [&] { files.Create(Path("none\\file")); }},
        {75, [&] { files.OpenForAppending(Path("folder")); }},
        {75, [&] { files.Replace(Path("file"), Path("folder")); }},
        {53, [&] { files.Replace(Path("none"), Path("file")); }},
        {53, [&] { files.Delete(Path("none")); }},
        {75, [&] { files.Delete(Path("folder")); }},
        {75, [&] { files.CreateFolder(Path("file")); }},
        {0, [&] { files.CreateFolder(Path("folder")); }},
        {0, [&] { files.CreateFolder(Path("one\\two\\three\\")); }},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].number, NumberOf(cases[i].step)) << "case " << i;
    EXPECT_EQ(PathKind::Folder, files.Kind(Path("one\\two\\three")));
    EXPECT_EQ("x", ReadWholeFile(files, Path("file")));
}

TEST_F(FileSystemTest, AnUnreachableDriveIsNotTakenForMissingFiles) {
    EXPECT_EQ(PathKind::Missing, files.Kind(Path("none")));
    EXPECT_EQ(PathKind::Missing, files.Kind(Path("none\\none")));
    EXPECT_EQ(PathKind::Missing, files.Kind(""));
    EXPECT_EQ(PathKind::Folder, files.Kind(folder));
    ASSERT_EQ(UINT{DRIVE_NO_ROOT_DIR}, GetDriveTypeW(L"Q:\\"));
    EXPECT_EQ(PathKind::Other, files.Kind("Q:\\KAZ\\Events.xml"));
    EXPECT_FALSE(FileExists(files, "Q:\\KAZ\\Events.xml"));
    EXPECT_EQ(76, NumberOf([&] { ReadFileOrEmpty(files, "Q:\\KAZ\\Events.xml"); }));
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
    SetCurrentDirectoryW(ToWide(folder).c_str());
    EXPECT_EQ(PathKind::Folder, files.Kind("."));
    EXPECT_EQ(FileNameOf(folder), FileNameOf(files.CurrentFolder()));
    SetCurrentDirectoryW(L"C:\\");
    EXPECT_EQ("C:\\", files.CurrentFolder());
}

}  // namespace
}  // namespace kaz
