#include "ScriptHost.h"
#include "fakes/Sample.h"
#include "fakes/TestData.h"
#include "fakes/TestFolder.h"
#include "platform/win32/Win32Clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace kaz::test {

TEST(Script, ExampleListsTodaysEvents) {
    const TestFolder folder;
    folder.Write("Kaz.ini", "OWNER,Single\r\nNOAUTOBACKUPS,-1\r\n");
    const DateValue today = Win32Clock().Today();
    clsEvent dentist = OneOff("000002", "Zahnarzt", today);
    dentist.Email = "ann@example.org";
    folder.Write("Events.xml", FileOf({OneOff("000001", "Caf\xe9 au lait", today), dentist,
                                       OneOff("000003", "Garden", DateValue(today.Day() + 1))}));
    std::ifstream script(TestData() + "/../examples/today.vbs", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(script), {}};
    EXPECT_THAT(
        ScriptHost(folder.Path().wstring()).Run(text),
        testing::ElementsAre(L"Mail to ann@example.org: Zahnarzt", L"Caf\u00e9 au lait", L"Zahnarzt"));
}

}  // namespace kaz::test
