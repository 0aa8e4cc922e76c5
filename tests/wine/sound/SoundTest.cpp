#include "RealFileSystem.h"
#include "fakes/TestFolder.h"
#include "platform/Files.h"
#include "platform/WaveFile.h"
#include "platform/win32/Win32Sound.h"
#include "win32/Text.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace kaz {
namespace {

// What comes out of it is recorded by whoever runs this program.
TEST(SoundTest, TheDefaultAlarmCanBeHeardUnderAnyName) {
    const char* data = std::getenv("KAZ_TEST_DATA");
    ASSERT_NE(nullptr, data);
    const TestFolder folder;
    std::filesystem::copy_file(JoinPath(FolderOf(data), "src\\resources\\alarm.wav"),
                               folder.Path() / L"\u00fc.wav");
    const std::string file = ToUtf8((folder.Path() / L"\u00fc.wav").wstring());

    Win32Sound sound;
    ASSERT_GT(sound.OutputDevices(), 0U);
    RealFileSystem files;
    std::string format = WaveFormatOf(files, file);
    EXPECT_TRUE(sound.Plays(format));
    format[0] = '\x77';
    EXPECT_FALSE(sound.Plays(format)) << "nobody knows such a coding";

    // Not in the background, where nothing is told of a file that is not found.
    EXPECT_TRUE(sound.Play(file, Sound::kNoDefault | Sound::kNoStop | Sound::kFileName));
    EXPECT_TRUE(sound.Play(file, Sound::kAsync | Sound::kNoDefault | Sound::kNoStop | Sound::kFileName));
    Sleep(1500);
    sound.Play("", Sound::kPurge);
}

}  // namespace
}  // namespace kaz
