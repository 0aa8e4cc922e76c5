#include "core/EventLists.h"

#include "base/RuntimeError.h"
#include "fakes/FakePlatform.h"
#include "fakes/RecordingHost.h"
#include "fakes/Sample.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kaz {
namespace {

// A program whose host does something in the middle of each mail.
class MailHandlers : public testing::Test {
protected:
    MailHandlers() {
        app.events = std::make_unique<clsDbXml>(app.Storage());
        app.events->SetDBFilename("C:\\KAZ\\Events.xml");
    }
    void Add(int count) {
        for (int number = 1; number <= count; ++number) {
            clsEvent event = Daily(std::to_string(100000 + number), "Bill", machine.clock.Today());
            event.Email = "ann@example.org";
            app.events->AllEvents().push_back(event);
        }
    }
    clsEvent& First() { return app.events->AllEvents().front(); }
    int Mails() const {
        return static_cast<int>(std::ranges::count_if(
            host.raised, [](const std::string& event) { return event.starts_with("MailEvent"); }));
    }

    FakePlatform machine;
    Application app{machine.Services()};
    RecordingHost host;
};

TEST_F(MailHandlers, WhatTheyDoToTheEventDecidesWhetherItsMailIsDueAgain) {
    const struct {
        const char* what;
        std::function<void()> handler;
        int mailsOfTwoScans;
    } cases[] = {
        {"scans", [this] { EventLists(app, host); }, 1},
        {"edits the address", [this] { First().Email = "bob@example.org"; }, 2},
        {"deletes it", [this] { app.events->DeleteRecord("100001"); }, 1},
        {"reads another file", [this] { app.events->AllEvents().clear(); }, 1},
        {"fails", [] { throw RuntimeError(ErrorNumber::InternalError); }, 2},
        {"waits until tomorrow, and the new day scans",
         [this] {
             machine.clock.AdvanceDays(1);
             First().CalcNextDueDate(machine.clock.Today(), app.log);
             EventLists(app, host);
         },
         2},
    };
    for (const auto& one : cases) {
        app.events->AllEvents().clear();
        host.raised.clear();
        Add(1);
        host.onMail = [&] {
            if (Mails() == 1) one.handler();
        };
        EventLists(app, host);
        EventLists(app, host);
        EXPECT_EQ(Mails(), one.mailsOfTwoScans) << one.what;
        EXPECT_TRUE(app.mailsRaised.empty()) << one.what;
    }
}

TEST_F(MailHandlers, ThatScanGoOnlySoDeepAndLoseNoMail) {
    Add(100);
    int depth = 0, deepest = 0;
    host.onMail = [&] {
        deepest = std::max(deepest, ++depth);
        EventLists(app, host);
        --depth;
    };
    EventLists(app, host);
    EXPECT_EQ(Mails(), 100);
    EXPECT_LE(deepest, 16);
}

}  // namespace
}  // namespace kaz
