#include "base/Text.h"
#include "fakes/Matchers.h"
#include "story/Story.h"

using namespace kaz;

namespace {

constexpr const char* kShare = "C:\\Share";

// The program of one user who shares; all users see the same files.
struct User {
    User(MemoryFileSystem& disk, const std::string& name) : folder("C:\\" + name) {
        disk.Put(folder + "\\Kaz.ini", "OWNER," + name + "\r\nNETWORKED,-1\r\nNOAUTOBACKUPS,-1\r\nDATAPATH," +
                                           folder + "\r\nSHAREDDATAPATH," + kShare + "\r\nLAYER3,Family\r\n");
        component.emplace(machine.Services(disk), MakeMainWindow, host);
    }
    void Start() {
        component->Startup(folder);
        component->ShowMain();
        Tick();
    }
    void Tick() { machine.windows.Advance(31000); }
    // The descriptions in the main list, each with its type and category.
    std::vector<std::string> List() {
        const FakeReportList& list = machine.windows.Newest(IDD_MAIN)->Report(IDC_ListEvents);
        std::vector<std::string> rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows.push_back(list.Cell(row, 7) + "|" + list.Cell(row, 4) + "|" + list.Cell(row, 5));
        return rows;
    }

    std::string folder;
    FakePlatform machine;
    RecordingHost host;
    std::optional<clsComponent> component;
};

// All of them in the category "Family".
clsEvent Family(const char* code, const char* description, int inDays) {
    clsEvent event = OneOff(code, description, DateValue(45000 + inDays));
    event.Layer(3);
    return event;
}

struct Office {
    Office() { disk.Put(Shared("KAZShared.ini"), "  Ann \r\n\r\nBob\r\nCleo\r\n"); }
    static std::string Shared(const std::string& name) { return std::string(kShare) + "\\" + name; }
    // What another program of that user has published.
    void Publish(const std::string& user, const clsEvent& event) {
        disk.Put(Shared("Shared_" + user + ".xml"), FileOf({SharedBy(user, event)}));
    }
    MemoryFileSystem disk;
};

}  // namespace

TEST(Sharing, EachUserSeesWhatIsMeantForHimInHisOwnCategory) {
    Office office;
    User ann(office.disk, "Ann"), bob(office.disk, "Bob"), cleo(office.disk, "Cleo");
    office.disk.Put(ann.folder + "\\Events.xml",
                    FileOf({SharedBy("Ann", Family("000001", "For all", 1)),
                            SharedBy("Ann", Family("000002", "For Bob", 2), "Bob\r\n"),
                            OneOff("000003", "Mine", DateValue(45003))}));
    // Bob has the category under another number.
    office.disk.At(bob.folder + "\\Kaz.ini").text += "LAYER3,Work\r\nLAYER7,family\r\n";
    bob.Start();
    EXPECT_THAT(bob.List(), IsEmpty());
    ann.Start();
    EXPECT_THAT(ann.List(), ElementsAre("*|For all|Family", "*|For Bob|Family", "|Mine|Layer 1"));
    bob.Tick();
    EXPECT_THAT(bob.List(), ElementsAre("S|For all|family", "S|For Bob|family"));
    cleo.Start();
    EXPECT_THAT(cleo.List(), ElementsAre("S|For all|Family"));
    EXPECT_THAT(office.disk.Text("C:\\Share\\Shared_Ann.xml"), Not(HasSubstr("Mine")));
    EXPECT_THAT(office.disk.Text(ann.folder + "\\Log_KAZ.txt"),
                HasSubstr("C:\\Share\\Shared_Cleo.xml not found. Setting null refresh date."));
}

TEST(Sharing, WhatOthersWroteIsNotTrusted) {
    Office office;
    User ann(office.disk, "Ann");
    const std::vector<std::string> refused{"..\\Secret", "C:\\x", "NUL", "com1.txt", "\\\\srv\\share"};
    std::string users = "Bob\r\n";
    for (const std::string& name : refused)
        users += name + "\r\n";
    office.disk.Put(Office::Shared("KAZShared.ini"), users);
    office.disk.Put("C:\\Shared_x.xml", FileOf({SharedBy("Eve", Family("000009", "Outside", 1))}));
    clsEvent evil = Running(WithAlarm(Family("000001", "Party", 0), 9, 0), "C:\\evil.exe");
    evil.SharedLayerName = "New\r\nOWNER,Eve";
    office.disk.Put("C:\\evil.exe", "MZ");
    office.Publish("Bob", evil);
    office.disk.At(Office::Shared("Shared_Bob.xml")).text += "\x01<EVENT><Owner>Bob</Owner></EVENT>";
    ann.Start();
    ann.Tick();
    EXPECT_THAT(ann.machine.shell.opened, IsEmpty());
    FakeWindow* question = ann.machine.windows.Newest(IDD_RUNFILE);
    ASSERT_NE(question, nullptr);
    question->Click(IDC_cmdYes);
    EXPECT_THAT(ann.machine.shell.opened, ElementsAre("C:\\evil.exe"));
    EXPECT_THAT(office.disk.Text(ann.folder + "\\Kaz.ini"),
                AllOf(HasSubstr("Bob|C:\\evil.exe"), Not(HasSubstr("Eve"))));
    for (const std::string& name : refused)
        EXPECT_THAT(office.disk.Text(ann.folder + "\\Log_KAZ.txt"),
                    HasSubstr("Shared user \"" + name + "\" refused"));
}

TEST(Sharing, AnEventOfAnotherWithTheSameCodeStaysOutOfOnesOwnFile) {
    Office office;
    User ann(office.disk, "Ann");
    const std::string own = "C:\\Share\\Shared_Ann.xml";
    office.disk.Put(ann.folder + "\\Events.xml", FileOf({SharedBy("Ann", Family("000001", "Dinner", 0))}));
    office.Publish("Bob", Family("000001", "Party", 5));
    office.disk.Put(own, FileOf({}));
    office.disk.At(own).locked = true;
    ann.Start();
    office.disk.At(own).locked = false;
    ann.machine.clock.AdvanceDays(1);
    ann.Tick();
    EXPECT_EQ(office.disk.Text(own), FileOf({}));
}

TEST(Sharing, ACategoryThatWasRenamedDoesNotComeBack) {
    Office office;
    for (const char* category : {"Family", "Kin"}) {
        User ann(office.disk, "Ann");
        std::string& settings = office.disk.At(ann.folder + "\\Kaz.ini").text;
        settings = ReplaceAll(settings, "LAYER3,Family", "LAYER3," + std::string(category));
        office.disk.Put(ann.folder + "\\Events.xml",
                        FileOf({SharedBy("Ann", Family("000001", "For all", 1))}));
        ann.Start();
        ann.Tick();
        EXPECT_THAT(office.disk.Text("C:\\Share\\Shared_Ann.xml"), HasSubstr(category));
        ann.component->ShutDown();
        const std::string kept = office.disk.Text(ann.folder + "\\Kaz.ini");
        EXPECT_EQ(Split(kept, "Family").size() + Split(kept, "Kin").size(), 3U) << kept;
    }
}

TEST(Sharing, ALostShareLosesNothingAndWhoJoinsIsSeenAtTheNextTick) {
    Office office;
    User ann(office.disk, "Ann");
    office.disk.Put(ann.folder + "\\Events.xml", FileOf({SharedBy("Ann", Family("000001", "For all", 1))}));
    office.Publish("Bob", Family("000002", "Party", 1));
    office.disk.At(Office::Shared("Shared_Bob.xml")).locked = true;
    ann.Start();
    EXPECT_THAT(ann.List(), ElementsAre("*|For all|Family"));
    office.disk.At(Office::Shared("Shared_Bob.xml")).locked = false;
    ann.Tick();
    EXPECT_THAT(ann.List(), testing::UnorderedElementsAre("*|For all|Family", "S|Party|Family"));

    // What cannot be read for a while keeps what it was, and what could not be published is, once it can.
    const std::string own = "C:\\Share\\Shared_Ann.xml";
    MemoryFileSystem::Node& users = office.disk.At(Office::Shared("KAZShared.ini"));
    users.locked = true;
    users.time += 50;
    office.disk.Put(own, FileOf({}));
    office.disk.At(own).readOnly = true;
    ann.machine.clock.AdvanceDays(1);
    ann.Tick();
    EXPECT_THAT(ann.List(), Contains("S|Party|Family"));
    users.locked = false;
    office.disk.At(own).readOnly = false;
    ann.Tick();
    EXPECT_THAT(office.disk.Text(own), HasSubstr("For%20all"));
    EXPECT_THAT(ann.List(), Contains("S|Party|Family"));

    office.disk.Put(Office::Shared("KAZShared.ini"), "Bob\r\nDora\r\n");
    ann.Tick();
    office.Publish("Dora", Family("000002", "Trip", 2));
    ann.Tick();
    EXPECT_THAT(ann.List(), AllOf(Contains("S|Party|Family"), Contains("S|Trip|Family")));
}
