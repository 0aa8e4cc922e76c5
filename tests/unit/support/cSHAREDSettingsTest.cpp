#include "support/cSHAREDSettings.h"

#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "platform/Files.h"

namespace kaz {
namespace {

constexpr const char* kFile = "C:\\KAZ\\Kaz.ini";

SettingValue Text(const char* text) { return std::string(text); }
SettingValue Number(int value) { return static_cast<std::int16_t>(value); }

class SettingsTest : public testing::Test {
protected:
    SettingsTest() { log.ApplicationFolder("C:\\KAZ"); }

    void Load(std::string text) {
        machine.files.Put(kFile, std::move(text));
        settings.LoadSettings(kFile);
    }
    std::string Saved() {
        EXPECT_TRUE(settings.SaveSettings(kFile));
        return machine.files.Text(kFile);
    }
    std::string Log() { return machine.files.Text("C:\\KAZ\\log.txt"); }

    FakePlatform machine;
    cSharedLogging log{machine.files, machine.clock, machine.system, {}};
    cSHAREDSettings settings{machine.files, machine.locale, machine.dialogs, log};
};

TEST_F(SettingsTest, TheFileKeepsItsOrderAndOnlyTheFirstCommaSeparates) {
    Load("OWNER,Smith, Jr.\r\nno comma\r\n ,blank name\r\n,no name\r\nWidth, 800 "
         "\r\nEMPTY,\r\n\r\nOWNER,Jones, Sr.\r\n"
         "LAST,no line end");
    EXPECT_EQ(settings.SettingsCount(), 4);
    EXPECT_EQ(settings.sGet("owner"), Text("Jones, Sr."));
    EXPECT_EQ(settings.sGet("wIdTh"), Text(" 800 "));
    EXPECT_EQ(settings.sGet("EMPTY"), Text(""));
    EXPECT_EQ(settings.SettingNameByIndex(2), "Width");
    EXPECT_EQ(settings.SettingNameByIndex(0), "");
    EXPECT_EQ(settings.SettingNameByIndex(5), "");
    EXPECT_EQ(Saved(), "OWNER,Jones, Sr.\r\nWIDTH, 800 \r\nEMPTY,\r\nLAST,no line end\r\n");
}

TEST_F(SettingsTest, NamesHaveNoCommaAndNoCase) {
    settings.StoreSetting("Shared,Data,path", Text("x"));
    EXPECT_EQ(settings.sGet("SharedDataPath"), Text("x"));
    EXPECT_TRUE(settings.IsSettingPresent("SHARED,DATAPATH"));
    settings.sSet("shareddatapath", Number(5));
    EXPECT_EQ(settings.SettingsCount(), 1);
    EXPECT_EQ(settings.SettingNameByIndex(1), "SharedDatapath");
    EXPECT_EQ(Saved(), "SHAREDDATAPATH,5\r\n");
    settings.StoreSetting("b", Text("two\r\nlines, of which the second is a line of its own"));
    settings.StoreSetting("c", Text("3"));
    settings.DeleteSettingByName("sharedDATAPATH");
    settings.DeleteSetting("nothing");
    EXPECT_EQ(settings.sGet("C"), Text("3"));
    EXPECT_EQ(settings.SettingNameByIndex(1), "b");
    Load(Saved());
    EXPECT_EQ(settings.sGet("b"), Text("two"));
    EXPECT_EQ(settings.sGet("lines"), Text(" of which the second is a line of its own"));
    settings.DeleteAllSettings();
    EXPECT_EQ(settings.SettingsCount(), 0);
    EXPECT_EQ(Saved(), "");
}

TEST_F(SettingsTest, WordsForYesAndNo) {
    machine.locale.data = FakeLocale::German();
    Load("A,true\r\nB, False \r\nC,WAHR\r\nD,falsch\r\nE,-1\r\nF,0\r\nG,yes\r\nH,truely\r\n");
    for (const char* yes : {"A", "C", "E"})
        EXPECT_TRUE(settings.Flag(yes)) << yes;
    for (const char* no : {"B", "D", "F", "G", "H", "absent"})
        EXPECT_FALSE(settings.Flag(no)) << no;
    EXPECT_EQ(settings.sGet("A"), Number(-1));
    EXPECT_EQ(settings.sGet("E"), Text("-1"));
    settings.StoreSetting("A", false);
    settings.StoreSetting("B", true);
    EXPECT_EQ(settings.sGet("B"), Number(-1));
    // A word that was stored as a text is the Boolean on its way out, but stays a text in the file.
    settings.StoreSetting("C", Text(" Falsch"));
    EXPECT_EQ(settings.sGet("C"), SettingValue(false));
    EXPECT_THAT(Saved(), StartsWith("A,0\r\nB,-1\r\nC, Falsch\r\nD,0\r\nE,-1\r\n"));
    machine.locale.data = FakeLocale::Polish();
    Load("A,fałsz\r\nB,Wahr\r\n");
    EXPECT_EQ(settings.sGet("A"), Number(0));
    EXPECT_EQ(settings.sGet("B"), Text("Wahr"));
}

TEST_F(SettingsTest, TheDefaultStandsInForNumberZeroButNotForTheTextZero) {
    settings.StoreSetting("number", Number(0));
    settings.StoreSetting("long", std::int32_t{0});
    settings.StoreSetting("flag", false);
    settings.StoreSetting("nothing", {});
    settings.StoreSetting("word", Text("FALSE"));
    for (const char* zero : {"number", "long", "flag", "nothing", "word", "absent"})
        EXPECT_EQ(settings.sGetWD(zero, Number(5)), Number(5)) << zero;
    EXPECT_EQ(settings.sGet("number", Number(5)), Number(0));
    EXPECT_EQ(settings.sGet("absent", Number(5)), Number(5));
    EXPECT_EQ(settings.sGet("absent"), SettingValue());
    Load("TEXT,0\r\nBLANK,\r\n");
    EXPECT_EQ(settings.RetrieveWithDefault("text", Number(5)), Text("0"));
    EXPECT_EQ(settings.RetrieveWithDefault("blank", Number(5)), Text(""));
    EXPECT_EQ(settings.TextOr("absent", "Not Set"), "Not Set");
}

TEST_F(SettingsTest, ValuesAsTextFlagAndNumber) {
    struct {
        SettingValue value;
        const char* text;
        bool flag;
        std::int32_t number;
    } const cases[] = {{{}, "", false, 0},
                       {true, "True", true, -1},
                       {false, "False", false, 0},
                       {Number(-7), "-7", true, -7},
                       {std::int32_t{100000}, "100000", true, 100000},
                       {Text(" 12 "), " 12 ", true, 12},
                       {Text("12px"), "12px", false, 12},
                       {Text("0.0"), "0.0", false, 0},
                       {Text("-1"), "-1", true, -1},
                       {Text("x"), "x", false, 0},
                       {Text("1e99"), "1e99", true, INT32_MAX},
                       {Text("-1e999"), "-1e999", true, INT32_MIN}};
    for (const auto& [value, text, flag, number] : cases) {
        EXPECT_EQ(ToText(value), text);
        EXPECT_EQ(ToFlag(value), flag) << text;
        EXPECT_EQ(ToNumber(value), number) << text;
    }
}

TEST_F(SettingsTest, AMissingFileIsNoErrorAndAnUnreadableOneIsNeverWrittenOver) {
    settings.StoreSetting("old", Number(1));
    settings.LoadSettings(kFile);
    EXPECT_EQ(settings.SettingsCount(), 0);
    EXPECT_EQ(Log(), "");

    machine.files.Put(kFile, "OWNER,Smith\r\n");
    for (const int fault : {1, 2}) {  // at its opening, and in the middle of the reading
        machine.files.faults.FailAt(fault);
        settings.LoadSettings(kFile);
        settings.StoreSetting("Owner", Text("Single User"));
        EXPECT_FALSE(settings.SaveSettings("c:\\kaz\\KAZ.ini"));
        EXPECT_EQ(machine.files.Text(kFile), "OWNER,Smith\r\n");
    }
    EXPECT_THAT(Log(), HasSubstr("in LoadSettings of cSHAREDSettings"));
    EXPECT_EQ(machine.dialogs.messages.size(), 2U);
    settings.LoadSettings(kFile);
    EXPECT_EQ(Saved(), "OWNER,Smith\r\n");
}

TEST_F(SettingsTest, AFailedSaveTellsAndLeavesFileAndMemory) {
    Load("OWNER,Smith\r\n");
    settings.StoreSetting("Owner", Text("Jones"));
    constexpr const char* kMessage = "Your settings file is read-only and I can't change it. Save cancelled.";
    machine.files.At(kFile).readOnly = true;
    EXPECT_FALSE(settings.SaveSettings(kFile));
    EXPECT_THAT(machine.dialogs.messages, ElementsAre(kMessage));
    EXPECT_THAT(Log(), HasSubstr(kMessage));
    machine.files.At(kFile).readOnly = false;
    bool saved = false;
    for (int n = 1; !saved; ++n) {
        machine.files.faults.FailAt(n, ErrorNumber::DiskFull);
        saved = settings.SaveSettings(kFile);
        EXPECT_EQ(saved, !machine.files.faults.Struck()) << n;
        EXPECT_EQ(machine.files.Text(kFile), saved ? "OWNER,Jones\r\n" : "OWNER,Smith\r\n") << n;
        EXPECT_EQ(settings.sGet("Owner"), Text("Jones"));
    }
    machine.files.faults.FailAt(0);
    EXPECT_THAT(Log(), HasSubstr("Error 61 (Disk full) in SaveSettings of cSHAREDSettings"));
}

TEST_F(SettingsTest, ASaveBringsOnlyWhatWasChangedHereIntoTheFile) {
    const std::string whole = "A,1\r\nB,2\r\nC,3\r\n";
    const std::string alone = "A,1\r\nB,5\r\n";
    const std::pair<std::string, std::string> cases[] = {
        {whole, alone},
        {"", alone},
        {"A,", alone},
        {whole + '\0', alone},
        {"B,2\r\nb,3\r\n", "B,5\r\nA,1\r\n"},
        {"note\r\nC,9\r\nb,7\r\nA,4\r\nD,8", "note\r\nB,5\r\nA,4\r\nD,8\r\n"}};
    for (const auto& [found, saved] : cases) {
        Load(whole);
        settings.StoreSetting("B", Number(5));
        settings.DeleteSetting("C");
        machine.files.Put(kFile, found);
        EXPECT_EQ(Saved(), saved) << found;
        machine.files.Remove(kFile);
        EXPECT_EQ(Saved(), saved) << found;
    }
    EXPECT_EQ(machine.files.Text("C:\\KAZ\\Kaz (damaged).ini"), whole + '\0');
}

TEST_F(SettingsTest, SetsGrowShrinkAndHaveGaps) {
    EXPECT_EQ(settings.AddToSet("Users", Text("Ann")), 1);
    EXPECT_EQ(settings.AddToSet("uS,ers", Text("Bob")), 2);
    EXPECT_EQ(settings.AddToSet("USERS", Text("Ann")), 3);
    EXPECT_EQ(settings.SetCount("users"), 3);
    EXPECT_EQ(Log(), "");
    settings.StoreSetting("USERS_X", Text("no member"));
    settings.StoreSetting("USERS_02", Text("no member"));
    settings.StoreSetting("USERS_4", Text("beyond the last index"));
    settings.DeleteFromSetByValue("users", Text("Ann"));
    EXPECT_EQ(settings.sGet("users_4"), Text("beyond the last index")) << "look-ups find the new places";
    EXPECT_FALSE(settings.ValueInSet("users", Text("Ann")));
    EXPECT_FALSE(settings.ValueInSet("users", Text("no member")));
    EXPECT_FALSE(settings.ValueInSet("users", Text("beyond the last index")));
    EXPECT_TRUE(settings.ValueInSet("Users", Text("Bob")));
    EXPECT_EQ(settings.SetCount("Users"), 1);
    EXPECT_THAT(Log(), HasSubstr("WARNING: LastIDX and Setcount not the same with setting 'USERS'"));
    EXPECT_EQ(settings.LastIndexInSet("users"), 3);
    EXPECT_EQ(settings.AddToSet("users", true), 5) << "4 is taken";
    EXPECT_EQ(Saved(), "USERS_INDEX,5\r\nUSERS_2,Bob\r\nUSERS_X,no member\r\nUSERS_02,no member\r\n"
                       "USERS_4,beyond the last index\r\nUSERS_5,-1\r\n");
    settings.LoadSettings(kFile);
    EXPECT_TRUE(settings.ValueInSet("users", true)) << "the same value after a save and a load";
    settings.DeleteASet("users");
    EXPECT_EQ(Saved(), "USERS_X,no member\r\nUSERS_02,no member\r\n");
    EXPECT_EQ(settings.sGet("users_02"), Text("no member")) << "look-ups still find their places";
}

TEST_F(SettingsTest, ASetWhoseIndexIsNonsenseNeitherSpinsNorOverflows) {
    Load("S_INDEX,2147483647\r\nS_1,a\r\nS_2147483647,b\r\nT_INDEX,-5\r\nU_INDEX,99999999999\r\nV_INDEX,"
         "x\r\n");
    EXPECT_EQ(settings.SetCount("S"), 2);
    EXPECT_TRUE(settings.ValueInSet("S", Text("b")));
    EXPECT_EQ(settings.AddToSet("S", Text("c")), 0);
    EXPECT_THAT(Log(), HasSubstr("Error 6 (Overflow) in AddToSet of cSHAREDSettings"));
    EXPECT_EQ(settings.AddToSet("U", Text("c")), 0);
    EXPECT_EQ(settings.SetCount("U"), 0);
    EXPECT_EQ(settings.AddToSet("T", Text("c")), 1);
    EXPECT_EQ(settings.AddToSet("V", Text("c")), 1);
    EXPECT_EQ(settings.SetCount("T"), 1);
    settings.DeleteASet("S");
    EXPECT_FALSE(settings.IsSettingPresent("S_2147483647"));
}

}  // namespace
}  // namespace kaz
