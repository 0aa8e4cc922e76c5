#include "platform/Files.h"
#include "platform/win32/Win32Sound.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace kaz {
namespace {

// What comes out of it is recorded by whoever runs this program.
TEST(SoundTest, TheDefaultAlarmCanBeHeard) {
    const char* data = std::getenv("KAZ_TEST_DATA");
    ASSERT_NE(nullptr, data);
    const std::string file = JoinPath(FolderOf(data), "src\\resources\\alarm.wav");
    Win32Sound sound;
    ASSERT_GT(sound.OutputDevices(), 0U);
    sound.Play(file, Sound::kAsync | Sound::kNoDefault | Sound::kNoStop | Sound::kFileName);
    Sleep(1500);
    sound.Play("", Sound::kPurge);
}

}  // namespace
}  // namespace kaz
