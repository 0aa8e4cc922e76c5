#include "commands/EventCommands.h"
#include "fakes/FakePlatform.h"
#include "fakes/Matchers.h"
#include "fakes/Sample.h"

#include <functional>

using namespace kaz;

namespace {

class EventCommandsTest : public testing::Test {
protected:
    EventCommandsTest() {
        settings.StoreSetting("Owner", std::string("Ann"));
        app.events = std::make_unique<clsDbXml>(app.Storage());
        app.expired = std::make_unique<clsDbXml>(app.Storage());
        events().SetDBFilename("C:\\KAZ\\Events.xml");
        expired().SetDBFilename("C:\\KAZ\\Expired.xml");
        Add(events(), "000001", "Ann");
        Add(events(), "000002", "Bob");
        Add(expired(), "000003", "Bob");
    }
    clsDbXml& events() { return *app.events; }
    clsDbXml& expired() { return *app.expired; }
    void Add(clsDbXml& database, const std::string& code, const std::string& owner) {
        clsEvent event = OneOff(code, "Event " + code, Today().PlusDays(1));
        event.Owner(owner);
        database.StoreRecord(event);
        database.SaveDB();
    }
    // What a list shows that was filled before the settings changed.
    static EventRef Ref(const std::string& code, EventSource source = EventSource::Local) {
        return {code, source, EventType::Own};
    }
    bool EditExpired(const std::string& code) {
        return commands.Edit(Ref(code, EventSource::Expired)).has_value();
    }
    void PushExpired(const std::string& code) {
        EventOperations(events(), expired(), app.Storage()).PushEvent(code, true);
    }
    DateValue Today() { return machine.clock.Today(); }
    std::string Saved(const std::string& name) { return machine.files.Text("C:\\KAZ\\" + name); }

    FakePlatform machine;
    Application app{machine.Services()};
    cSHAREDSettings& settings = app.settings;
    std::function<void()> meanwhile;  // what happens elsewhere while the dialog is open
    EventCommands commands{app, [this](clsEvent& event, EditMode) {
                               if (meanwhile) meanwhile();
                               event.Desc("Typed");
                               return true;
                           }};
};

TEST_F(EventCommandsTest, OwnershipCountsInANetworkOnly) {
    settings.StoreSetting("Networked", true);
    machine.dialogs.yesNo = {true, true, true};
    EXPECT_FALSE(commands.Edit(Ref("000002")));
    commands.Delete({Ref("000002")}, "Event 000002");
    EXPECT_THAT(machine.dialogs.messages,
                ElementsAre("You're not the owner of this event.  Only Bob can edit it",
                            "You're not the owner of this event.  Only Bob can delete it."));
    EXPECT_THAT(Saved("Events.xml"), HasSubstr("000002"));

    settings.StoreSetting("Networked", false);
    commands.Delete({Ref("000002")}, "Event 000002");
    EXPECT_THAT(Saved("Events.xml"), Not(HasSubstr("000002")));
    commands.Delete({Ref("no such code")}, "Nothing");
}

TEST_F(EventCommandsTest, AChangeOfSharingAloneMovesNoDateAndSendsNoMailAgain) {
    clsEvent late = Daily("000004", "Late", Today().PlusDays(-3));
    late.MailSent = true;
    events().StoreRecord(late);
    ASSERT_TRUE(commands.ShareWith(Ref("000004"), {}));
    EXPECT_EQ(events().ReadEvent("000004")->DueDate(), Today().PlusDays(-3));
    EXPECT_TRUE(events().ReadEvent("000004")->MailSent);
    ASSERT_TRUE(commands.Edit(Ref("000004")));
    EXPECT_EQ(events().ReadEvent("000004")->DueDate(), Today());
    EXPECT_FALSE(events().ReadEvent("000004")->MailSent);
}

TEST_F(EventCommandsTest, AnEventThatWentWhileItWasEditedIsAskedAbout) {
    meanwhile = [&] { events().DeleteRecord("000001"); };
    EXPECT_FALSE(commands.Edit(Ref("000001")));
    EXPECT_THAT(Saved("Events.xml"), Not(HasSubstr("000001")));
    EXPECT_THAT(machine.dialogs.questions, SizeIs(1));

    meanwhile = {};
    Add(events(), "000001", "Ann");
    meanwhile = [&] { Changing(events()).clear(); };
    machine.dialogs.yesNo = {true};
    EXPECT_TRUE(commands.Edit(Ref("000001")));
    EXPECT_THAT(Saved("Events.xml"), HasSubstr("<Desc>Typed</Desc>"));
}

TEST_F(EventCommandsTest, PushPutsOffByADay) {
    commands.Push(Ref("000001"));
    EXPECT_EQ(events().ReadEvent("000001")->DueDate(), Today().PlusDays(2));
    PushExpired("000003");
    EXPECT_THAT(Saved("Expired.xml"), Not(HasSubstr("000003")));
    EXPECT_THAT(Saved("Events.xml"), HasSubstr("000003"));
    commands.Push(Ref("nothing"));
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\log.txt"),
                HasSubstr("Unable to push event with ID nothing. Not found in database."));
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
}

// What has the same code in the other file is another event, and stays.
TEST_F(EventCommandsTest, ACodeInBothFilesMeansTwoEvents) {
    clsEvent other = OneOff("000001", "Other", Today());
    other.Owner("Ann");
    expired().StoreRecord(other);
    expired().SaveDB();
    commands.Push(Ref("000001"));
    EXPECT_THAT(Saved("Expired.xml"), HasSubstr("<Desc>Other</Desc>"));
    PushExpired("000001");
    EXPECT_THAT(Saved("Expired.xml"), Not(HasSubstr("<Desc>Other</Desc>")));
    expired().StoreRecord(other);
    EXPECT_TRUE(EditExpired("000001"));
    EXPECT_THAT(DescriptionsOf(events().AllEvents()),
                ElementsAre("Event 000002", "Event 000001", "Other", "Typed"));
}

TEST_F(EventCommandsTest, AFaultAnywhereInAMoveLeavesTheEventInOneOfTheFiles) {
    const auto moveWithFault = [&](int n, FaultInjector::Lasts lasts) {
        Changing(events()).clear();
        events().SaveDB();
        Changing(expired()).clear();
        Add(expired(), "000003", "Bob");
        machine.files.faults.FailAt(n, ErrorNumber::DiskFull, lasts);
        PushExpired("000003");
        const bool struck = machine.files.faults.Struck();
        machine.files.faults.FailAt(0);
        machine.files.LosePower();
        EXPECT_THAT(Saved("Events.xml") + Saved("Expired.xml"), HasSubstr("000003")) << n;
        EXPECT_TRUE(events().ReadEvent("000003"));
        return struck;
    };
    for (const auto lasts : {FaultInjector::Lasts::Once, FaultInjector::Lasts::FromThenOn}) {
        int n = 1;
        while (moveWithFault(n, lasts))
            ++n;
        EXPECT_GT(n, 10);
    }
}

}  // namespace
