#include "base/Text.h"
#include "base/Version.h"
#include "fakes/TestData.h"
#include "story/Story.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace kaz {
namespace {

// What people read first when something is wrong, line by line.
TEST(StartLogStory, IsTheOneOfTheGoldenFile) {
    Story story;
    story.Settings("OWNER,Ann\r\nNETWORKED,-1\r\nSHAREDDATAPATH,C:\\Share\r\n");
    story.machine.files.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
    clsEvent party = OneOff("000002", "Party", story.Today(1));
    party.Owner("Bob");
    party.SharedEvent = true;
    story.machine.files.Put("C:\\Share\\Shared_Bob.xml", FileOf({party}));
    story.Start().ShowMain();
    story.Advance(1);
    std::ifstream golden(TestData() + "/golden/start.log", std::ios::binary);
    const std::string version =
        std::to_string(kMajor) + "." + std::to_string(kMinor) + "." + std::to_string(kRevision);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(golden), {}),
              ReplaceAll(story.Log(), version, "1.2.3"));
}

}  // namespace
}  // namespace kaz
