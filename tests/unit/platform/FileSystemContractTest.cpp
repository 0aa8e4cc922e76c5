#include "RealFileSystem.h"
#include "fakes/ErrorOf.h"
#include "fakes/MemoryFileSystem.h"
#include "fakes/TestFolder.h"
#include "platform/Files.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace kaz {
namespace {

struct Machine {
    explicit Machine(FileSystem& system) : files(system) {}
    virtual ~Machine() = default;
    virtual void Protect(const std::string& path) = 0;
    FileSystem& files;
    std::string folder;
};

struct RealFiles : Machine {
    RealFiles() : Machine(system) {
        folder = place.Path().string();
        std::replace(folder.begin(), folder.end(), '/', '\\');
    }
    void Protect(const std::string& path) override {
        std::filesystem::permissions(place.Path() / FileNameOf(path), std::filesystem::perms::owner_read);
    }
    TestFolder place;
    RealFileSystem system;
};

struct FakeFiles : Machine {
    FakeFiles() : Machine(system) {
        folder = "C:\\KAZ";
        system.CreateFolder(folder);
    }
    void Protect(const std::string& path) override { system.At(path).readOnly = true; }
    MemoryFileSystem system;
};

template <class Files>
std::unique_ptr<Machine> Make() {
    return std::make_unique<Files>();
}

// One source of scenarios for the real files and for the fake, which keeps the fake honest.
class FileSystemContract : public testing::TestWithParam<std::unique_ptr<Machine> (*)()> {
protected:
    std::string In(const std::string& name) const { return JoinPath(machine->folder, name); }
    void Put(const std::string& name, std::string_view text) { WriteWholeFile(files, In(name), text); }
    std::string Text(const std::string& name) { return ReadWholeFile(files, In(name)); }

    std::unique_ptr<Machine> machine = GetParam()();
    FileSystem& files = machine->files;
};

INSTANTIATE_TEST_SUITE_P(OfReal, FileSystemContract, testing::Values(Make<RealFiles>));
INSTANTIATE_TEST_SUITE_P(OfFake, FileSystemContract, testing::Values(Make<FakeFiles>));

TEST_P(FileSystemContract, KeepsEveryByteInDeepFoldersAndLeavesNothingBeside) {
    std::string all(300'000, 'x');
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    files.CreateFolder(In("a\\b\\c\\"));
    files.CreateFolder(In("a\\b"));
    EXPECT_EQ(files.Kind(In("a\\b\\c")), PathKind::Folder);
    const std::string name = "a\\b\\c\\Events.xml";
    Put(name, "old");
    Put(name, all);
    AppendText(files, In(name), std::string("\0y", 2));
    EXPECT_EQ(Text(name), all + std::string("\0y", 2));
    EXPECT_EQ(files.OpenForReading(In(name))->Size(), all.size() + 2);
    EXPECT_THAT(files.FilesIn(In("a\\b\\c")), testing::ElementsAre("Events.xml"));
    EXPECT_THAT(files.FilesIn(In("a")), testing::IsEmpty());
    EXPECT_THAT(files.FilesIn(In("none")), testing::IsEmpty());
    files.Create(In(name))->Close();
    EXPECT_EQ(Text(name), "");
    files.Delete(In(name));
    EXPECT_EQ(files.Kind(In(name)), PathKind::Missing);
}

TEST_P(FileSystemContract, FailuresHaveTheirNumbers) {
    Put("file", "x");
    files.CreateFolder(In("folder"));
    const struct {
        int number;
        std::function<void()> step;
    } cases[] = {
        {53, [&] { files.OpenForReading(In("none")); }},
        {76, [&] { files.OpenForReading(In("none\\none")); }},
        {75, [&] { files.OpenForReading(In("folder")); }},
        {75, [&] { files.Create(In("folder")); }},
        {76, [&] { files.Create(In("none\\file")); }},
        {75, [&] { files.OpenForAppending(In("folder")); }},
        {75, [&] { files.Replace(In("file"), In("folder")); }},
        {76, [&] { files.Replace(In("file"), In("none\\file")); }},
        {53, [&] { files.Replace(In("none"), In("file")); }},
        {53, [&] { files.Delete(In("none")); }},
        {75, [&] { files.Delete(In("folder")); }},
        {75, [&] { files.CreateFolder(In("file")); }},
        {0, [&] { files.CreateFolder(In("folder")); }},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(ErrorOf(cases[i].step), cases[i].number) << "case " << i;
    EXPECT_EQ(files.Kind(In("none\\none")), PathKind::Missing);
    EXPECT_EQ(Text("file"), "x");
}

TEST_P(FileSystemContract, AReadOnlyFileIsLeftAlone) {
    Put("file", "old");
    Put("other", "new");
    machine->Protect(In("file"));
    EXPECT_TRUE(files.IsReadOnly(In("file")));
    EXPECT_FALSE(files.IsReadOnly(In("other")));
    EXPECT_FALSE(files.IsReadOnly(In("none")));
    EXPECT_FALSE(files.IsReadOnly(machine->folder));
    EXPECT_EQ(ErrorOf([&] { files.Delete(In("file")); }), 70);
    EXPECT_EQ(ErrorOf([&] { files.Replace(In("other"), In("file")); }), 70);
    EXPECT_EQ(ErrorOf([&] { Put("file", "other"); }), 70);
    EXPECT_EQ(Text("file"), "old");
    EXPECT_EQ(Text("other"), "new");
}

TEST_P(FileSystemContract, WhatIsOpenedAloneOthersOnlyRead) {
    auto alone = files.OpenAlone(In("file"));
    alone->Write("one");
    EXPECT_EQ(ErrorOf([&] { files.OpenAlone(In("file")); }), 70);
    EXPECT_EQ(Text("file"), "one");
    alone.reset();
    files.OpenAlone(In("file"))->Write(" two");
    EXPECT_EQ(Text("file"), "one two");
}

TEST_P(FileSystemContract, AnotherTextHasAnotherTime) {
    Put("file", "old");
    const auto before = files.ModificationTime(In("file"));
    EXPECT_EQ(files.ModificationTime(In("file")), before);
    for (int tries = 0; tries < 100 && files.ModificationTime(In("file")) == before; ++tries)
        Put("file", "new");
    EXPECT_NE(files.ModificationTime(In("file")), before);
    EXPECT_EQ(files.ModificationTime(In("none")), std::nullopt);
}

}  // namespace
}  // namespace kaz
