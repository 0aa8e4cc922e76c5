#include "base/Text.h"
#include "story/Story.h"

#include <gmock/gmock.h>

using namespace kaz;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr const char* kShare = "C:\\Share";

// The program of one user who shares; all users see the same files.
class User {
public:
    User(MemoryFileSystem& disk, const std::string& name) : folder_("C:\\" + name) {
        disk.Put(folder_ + "\\Kaz.ini", "OWNER," + name +
                                            "\r\nNETWORKED,-1\r\nNOAUTOBACKUPS,-1\r\nDATAPATH," + folder_ +
                                            "\r\nSHAREDDATAPATH," + kShare + "\r\nLAYER3,Family\r\n");
        component_.emplace(machine_.Services(disk), MakeMainWindow, host_);
    }
    void Start() {
        component_->Startup(folder_);
        component_->ShowMain();
        Tick();
    }
    void Tick() { machine_.windows.Advance(31000); }
    // The descriptions in the main list, each with its type and category.
    std::vector<std::string> List() {
        const FakeReportList& list = machine_.windows.Newest(IDD_MAIN)->Report(IDC_ListEvents);
        std::vector<std::string> rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows.push_back(list.Cell(row, 7) + "|" + list.Cell(row, 4) + "|" + list.Cell(row, 5));
        return rows;
    }
    void End() { component_->ShutDown(); }
    const std::string& Folder() const { return folder_; }
    FakePlatform& Machine() { return machine_; }

private:
    std::string folder_;
    FakePlatform machine_;
    RecordingHost host_;
    std::optional<clsComponent> component_;
};

clsEvent Shared(clsEvent event, const std::string& owner, const std::string& with = "") {
    event.Owner(owner);
    event.SharedEvent = true;
    event.ShareWithSpecific = !with.empty();
    event.ShareNames = with;
    event.Layer(3);
    return event;
}

struct Office {
    Office() { disk.Put(std::string(kShare) + "\\KAZShared.ini", "  Ann \r\n\r\nBob\r\nCleo\r\n"); }
    static DateValue Day(int plus) { return DateValue(45000 + plus); }
    MemoryFileSystem disk;
};

}  // namespace

TEST(Sharing, EachUserSeesWhatIsMeantForHimInHisOwnCategory) {
    Office office;
    User ann(office.disk, "Ann"), bob(office.disk, "Bob"), cleo(office.disk, "Cleo");
    office.disk.Put(ann.Folder() + "\\Events.xml",
                    FileOf({Shared(OneOff("000001", "For all", Office::Day(1)), "Ann"),
                            Shared(OneOff("000002", "For Bob", Office::Day(2)), "Ann", "Bob\r\n"),
                            OneOff("000003", "Mine", Office::Day(3))}));
    // Bob has the category under another number.
    office.disk.Put(bob.Folder() + "\\Kaz.ini",
                    office.disk.Text(bob.Folder() + "\\Kaz.ini") + "LAYER3,Work\r\nLAYER7,family\r\n");
    bob.Start();
    EXPECT_THAT(bob.List(), IsEmpty());
    ann.Start();
    EXPECT_THAT(ann.List(), ElementsAre("*|For all|Family", "*|For Bob|Family", "|Mine|Layer 1"));
    bob.Tick();
    EXPECT_THAT(bob.List(), ElementsAre("S|For all|family", "S|For Bob|family"));
    cleo.Start();
    EXPECT_THAT(cleo.List(), ElementsAre("S|For all|Family"));
    EXPECT_THAT(office.disk.Text("C:\\Share\\Shared_Ann.xml"), Not(HasSubstr("Mine")));
    EXPECT_THAT(office.disk.Text(ann.Folder() + "\\Log_KAZ.txt"),
                HasSubstr("C:\\Share\\Shared_Cleo.xml not found. Setting null refresh date."));
}

TEST(Sharing, AUserWhoJoinsAndAFileThatComesUpAreSeenAtTheNextTick) {
    Office office;
    User ann(office.disk, "Ann");
    ann.Start();
    EXPECT_THAT(ann.List(), IsEmpty());
    office.disk.Put("C:\\Share\\Shared_Bob.xml",
                    FileOf({Shared(OneOff("000001", "Party", Office::Day(1)), "Bob")}));
    ann.Tick();
    EXPECT_THAT(ann.List(), ElementsAre("S|Party|Family"));
    office.disk.Put("C:\\Share\\Shared_Dora.xml",
                    FileOf({Shared(OneOff("000001", "Trip", Office::Day(2)), "Dora")}));
    office.disk.Put("C:\\Share\\KAZShared.ini", "Bob\r\nDora\r\n");
    ann.Tick();
    EXPECT_THAT(ann.List(), ElementsAre("S|Party|Family", "S|Trip|Family"));
}

TEST(Sharing, WhatOthersWroteIsNotTrusted) {
    Office office;
    User ann(office.disk, "Ann");
    office.disk.Put("C:\\Share\\KAZShared.ini",
                    "..\\Secret\r\nC:\\x\r\nNUL\r\ncom1.txt\r\n\\\\srv\\share\r\nBob\r\n");
    office.disk.Put("C:\\Shared_x.xml", FileOf({Shared(OneOff("000009", "Outside", Office::Day(1)), "Eve")}));
    clsEvent evil = Shared(OneOff("000001", "Party", Office::Day(0)), "Bob");
    evil.SharedLayerName = "New\r\nOWNER,Eve";
    evil.ExecFile = true;
    evil.Filename = "C:\\evil.exe";
    evil.AlarmSet(true);
    evil.AlarmTime(DateValue::FromTime(9, 0));
    office.disk.Put("C:\\evil.exe", "MZ");
    office.disk.Put("C:\\Share\\Shared_Bob.xml", FileOf({evil}) + "\x01<EVENT><Owner>Bob</Owner></EVENT>");
    ann.Start();
    ann.Tick();
    EXPECT_THAT(ann.Machine().shell.opened, IsEmpty());
    FakeWindow* question = ann.Machine().windows.Newest(IDD_RUNFILE);
    ASSERT_NE(question, nullptr);
    question->Click(IDC_cmdYes);
    EXPECT_THAT(ann.Machine().shell.opened, ElementsAre("C:\\evil.exe"));
    EXPECT_THAT(office.disk.Text(ann.Folder() + "\\Kaz.ini"),
                testing::AllOf(HasSubstr("Bob|C:\\evil.exe"), Not(HasSubstr("Eve"))));
    const std::string log = office.disk.Text(ann.Folder() + "\\Log_KAZ.txt");
    for (const char* name : {"..\\Secret", "C:\\x", "NUL", "com1.txt", "\\\\srv\\share"})
        EXPECT_THAT(log, HasSubstr("Shared user \"" + std::string(name) + "\" refused"));
}

TEST(Sharing, AnEventOfAnotherWithTheSameCodeStaysOutOfOnesOwnFile) {
    Office office;
    User ann(office.disk, "Ann");
    const std::string own = "C:\\Share\\Shared_Ann.xml";
    office.disk.Put(ann.Folder() + "\\Events.xml",
                    FileOf({Shared(OneOff("000001", "Dinner", Office::Day(0)), "Ann")}));
    office.disk.Put("C:\\Share\\Shared_Bob.xml",
                    FileOf({Shared(OneOff("000001", "Party", Office::Day(5)), "Bob")}));
    office.disk.Put(own, FileOf({}));
    office.disk.At(own).locked = true;
    ann.Start();
    office.disk.At(own).locked = false;
    ann.Machine().clock.AdvanceDays(1);
    ann.Tick();
    EXPECT_EQ(office.disk.Text(own), FileOf({}));
}

TEST(Sharing, TwoWhoJoinAtOnceAreBothInTheList) {
    struct Disk : MemoryFileSystem {
        std::unique_ptr<OutputFile> Create(const std::string& path) override {
            if (const auto other = std::exchange(meanwhile, {})) other();
            return MemoryFileSystem::Create(path);
        }
        std::function<void()> meanwhile;
    } disk;
    disk.Put("C:\\Share\\KAZShared.ini", "Ann\r\nBob\r\n");
    FakePlatform machine;
    Application app(machine.Services());
    SharedFolder folder(disk, kShare, app.log);
    disk.meanwhile = [&] { folder.RemoveUsers({"Ann"}); };
    folder.AddUser("Cleo");
    EXPECT_THAT(folder.Users(), ElementsAre("Bob", "Cleo"));
}

TEST(Sharing, ACategoryThatWasRenamedDoesNotComeBack) {
    Office office;
    for (const char* category : {"Family", "Kin"}) {
        User ann(office.disk, "Ann");
        std::string& settings = office.disk.At(ann.Folder() + "\\Kaz.ini").text;
        settings = ReplaceAll(settings, "LAYER3,Family", "LAYER3," + std::string(category));
        office.disk.Put(ann.Folder() + "\\Events.xml",
                        FileOf({Shared(OneOff("000001", "For all", Office::Day(1)), "Ann")}));
        ann.Start();
        ann.Tick();
        EXPECT_THAT(office.disk.Text("C:\\Share\\Shared_Ann.xml"), HasSubstr(category));
        ann.End();
        const std::string kept = office.disk.Text(ann.Folder() + "\\Kaz.ini");
        EXPECT_EQ(Split(kept, "Family").size() + Split(kept, "Kin").size(), 3U) << kept;
    }
}

TEST(Sharing, ALostShareLosesNothingAndIsTriedAgain) {
    Office office;
    User ann(office.disk, "Ann");
    office.disk.Put(ann.Folder() + "\\Events.xml",
                    FileOf({Shared(OneOff("000001", "For all", Office::Day(1)), "Ann")}));
    office.disk.Put("C:\\Share\\Shared_Bob.xml",
                    FileOf({Shared(OneOff("000002", "Party", Office::Day(1)), "Bob")}));
    office.disk.At("C:\\Share\\Shared_Bob.xml").locked = true;
    ann.Start();
    EXPECT_THAT(ann.List(), ElementsAre("*|For all|Family"));
    office.disk.At("C:\\Share\\Shared_Bob.xml").locked = false;
    ann.Tick();
    EXPECT_THAT(ann.List(), testing::UnorderedElementsAre("*|For all|Family", "S|Party|Family"));

    // What cannot be read for a while keeps what it was, and what could not be published is, once it can.
    const std::string own = "C:\\Share\\Shared_Ann.xml";
    const std::string published = office.disk.Text(own);
    office.disk.At("C:\\Share\\KAZShared.ini").locked = true;
    office.disk.At("C:\\Share\\KAZShared.ini").time += 50;
    office.disk.Put(own, FileOf({}));
    office.disk.At(own).readOnly = true;
    ann.Machine().clock.AdvanceDays(1);
    ann.Tick();
    EXPECT_THAT(ann.List(), testing::Contains("S|Party|Family"));
    office.disk.At("C:\\Share\\KAZShared.ini").locked = false;
    office.disk.At(own).readOnly = false;
    ann.Tick();
    EXPECT_THAT(office.disk.Text(own), HasSubstr("For%20all"));
    EXPECT_THAT(ann.List(), testing::Contains("S|Party|Family"));
}
