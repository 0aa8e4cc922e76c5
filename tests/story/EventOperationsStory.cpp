#include "core/Application.h"
#include "fakes/FakePlatform.h"
#include "fakes/Sample.h"
#include "storage/EventOperations.h"

#include <gmock/gmock.h>

#include <functional>

using namespace kaz;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

// A user at the editor.
class FakeEditor : public EventEditor {
public:
    bool Edit(clsEvent& event, EditMode) override {
        if (meanwhile) meanwhile();
        event.Desc(typed);
        return saves;
    }
    std::string typed = "Typed";
    bool saves = true;
    std::function<void()> meanwhile;  // what happens elsewhere while the dialog is open
};

class EventOperationsTest : public testing::Test {
protected:
    EventOperationsTest() {
        settings.StoreSetting("Owner", std::string("Ann"));
        events.SetDBFilename("C:\\KAZ\\Events.xml");
        expired.SetDBFilename("C:\\KAZ\\Expired.xml");
        Add(events, "000001", "Ann");
        Add(events, "000002", "Bob");
        Add(expired, "000003", "Bob");
    }
    void Add(clsDbXml& database, const std::string& code, const std::string& owner) {
        clsEvent event = OneOff(code, "Event " + code, Today().PlusDays(1));
        event.Owner(owner);
        database.StoreRecord(event);
        database.SaveDB();
    }
    DateValue Today() { return machine.clock.Today(); }
    std::string Saved(const std::string& name) { return machine.files.Text("C:\\KAZ\\" + name); }

    FakePlatform machine;
    Application app{machine.Services()};
    cSHAREDSettings& settings = app.settings;
    clsDbXml events{app.Storage()};
    clsDbXml expired{app.Storage()};
    EventOperations operations{{events, expired, settings, machine.clock, machine.dialogs, app.log}};
    FakeEditor editor;
};

TEST_F(EventOperationsTest, OwnershipCountsInANetworkOnly) {
    settings.StoreSetting("Networked", true);
    EXPECT_FALSE(operations.EditEvent("000002", false, EditMode::Whole, editor));
    operations.DeleteEvents({"000002"});
    EXPECT_THAT(machine.dialogs.messages,
                ElementsAre("You're not the owner of this event.  Only Bob can edit it",
                            "You're not the owner of this event.  Only Bob can delete it."));
    EXPECT_THAT(Saved("Events.xml"), HasSubstr("000002"));

    settings.StoreSetting("Networked", false);
    operations.DeleteEvents({"000002"});
    EXPECT_THAT(Saved("Events.xml"), Not(HasSubstr("000002")));
    operations.DeleteEvents({"no such code"});
}

TEST_F(EventOperationsTest, AnEditedExpiredEventMovesBackUnlessItCannotBeSaved) {
    machine.files.At("C:\\KAZ\\Events.xml").readOnly = true;
    operations.EditEvent("000003", true, EditMode::Whole, editor);
    EXPECT_THAT(Saved("Expired.xml"), HasSubstr("000003"));

    machine.files.At("C:\\KAZ\\Events.xml").readOnly = false;
    EXPECT_TRUE(operations.EditEvent("000003", true, EditMode::Whole, editor));
    EXPECT_THAT(Saved("Expired.xml"), Not(HasSubstr("000003")));
    EXPECT_EQ(events.ReadEvent("000003")->Desc(), "Typed");
}

TEST_F(EventOperationsTest, AChangeOfSharingAloneMovesNoDateAndSendsNoMailAgain) {
    clsEvent late = Daily("000004", "Late", Today().PlusDays(-3));
    late.MailSent = true;
    events.StoreRecord(late);
    ASSERT_TRUE(operations.EditEvent("000004", false, EditMode::SharingOnly, editor));
    EXPECT_EQ(events.ReadEvent("000004")->DueDate(), Today().PlusDays(-3));
    EXPECT_TRUE(events.ReadEvent("000004")->MailSent);
    ASSERT_TRUE(operations.EditEvent("000004", false, EditMode::Whole, editor));
    EXPECT_EQ(events.ReadEvent("000004")->DueDate(), Today());
    EXPECT_FALSE(events.ReadEvent("000004")->MailSent);
}

TEST_F(EventOperationsTest, AnEventThatWentWhileItWasEditedIsAskedAbout) {
    editor.meanwhile = [&] { events.DeleteRecord("000001"); };
    EXPECT_FALSE(operations.EditEvent("000001", false, EditMode::Whole, editor));
    EXPECT_THAT(Saved("Events.xml"), Not(HasSubstr("000001")));
    EXPECT_THAT(machine.dialogs.questions, testing::SizeIs(1));

    editor.meanwhile = {};
    Add(events, "000001", "Ann");
    editor.meanwhile = [&] { events.AllEvents().clear(); };
    machine.dialogs.yesNo = {true};
    EXPECT_TRUE(operations.EditEvent("000001", false, EditMode::Whole, editor));
    EXPECT_THAT(Saved("Events.xml"), HasSubstr("<Desc>Typed</Desc>"));
}

TEST_F(EventOperationsTest, PushPutsOffByADay) {
    operations.PushEvent("000001", false);
    EXPECT_EQ(events.ReadEvent("000001")->DueDate(), Today().PlusDays(2));
    operations.PushEvent("000003", true);
    EXPECT_THAT(Saved("Expired.xml"), Not(HasSubstr("000003")));
    EXPECT_THAT(Saved("Events.xml"), HasSubstr("000003"));
    operations.PushEvent("nothing", false);
    EXPECT_THAT(machine.files.Text("C:\\KAZ\\log.txt"),
                HasSubstr("Unable to push event with ID nothing. Not found in database."));
    EXPECT_THAT(machine.dialogs.messages, IsEmpty());
}

// What has the same code in the other file is another event, and stays.
TEST_F(EventOperationsTest, ACodeInBothFilesMeansTwoEvents) {
    clsEvent other = OneOff("000001", "Other", Today());
    other.Owner("Ann");
    expired.StoreRecord(other);
    expired.SaveDB();
    operations.PushEvent("000001", false);
    EXPECT_THAT(Saved("Expired.xml"), HasSubstr("<Desc>Other</Desc>"));
    operations.PushEvent("000001", true);
    EXPECT_THAT(Saved("Expired.xml"), Not(HasSubstr("<Desc>Other</Desc>")));
    expired.StoreRecord(other);
    EXPECT_TRUE(operations.EditEvent("000001", true, EditMode::Whole, editor));
    EXPECT_THAT(DescriptionsOf(events.AllEvents()),
                ElementsAre("Event 000002", "Event 000001", "Other", "Typed"));
}

TEST_F(EventOperationsTest, AFaultAnywhereInAMoveLeavesTheEventInOneOfTheFiles) {
    const auto moveWithFault = [&](int n, FaultInjector::Lasts lasts) {
        events.AllEvents().clear();
        events.SaveDB();
        expired.AllEvents().clear();
        Add(expired, "000003", "Bob");
        machine.files.faults.FailAt(n, ErrorNumber::DiskFull, lasts);
        operations.PushEvent("000003", true);
        const bool struck = machine.files.faults.Struck();
        machine.files.faults.FailAt(0);
        machine.files.LosePower();
        EXPECT_THAT(Saved("Events.xml") + Saved("Expired.xml"), HasSubstr("000003")) << n;
        EXPECT_TRUE(events.ReadEvent("000003"));
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
