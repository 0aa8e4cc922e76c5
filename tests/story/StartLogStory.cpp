#include "base/Text.h"
#include "base/Version.h"
#include "fakes/TestData.h"
#include "story/Story.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

// What people read first when something is wrong, line by line.
TEST(StartLogStory, IsTheOneOfTheGoldenFile) {
    Story story;
    story.Settings("OWNER,Ann\r\nNETWORKED,-1\r\nSHAREDDATAPATH,C:\\Share\r\n");
    story.machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
    story.machine.files.Put("C:\\Share\\Shared_Bob.xml",
                            FileOf({SharedBy("Bob", OneOff("2", "Party", story.Today(1)))}));
    story.Start().ShowMain();
    story.Advance(1);
    const std::string version =
        std::to_string(kMajor) + "." + std::to_string(kMinor) + "." + std::to_string(kRevision);
    EXPECT_EQ(GoldenFile("start.log"), ReplaceAll(story.Log(), version, "1.2.3"));
}

}  // namespace
}  // namespace kaz
