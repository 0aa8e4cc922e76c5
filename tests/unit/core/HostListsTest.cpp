#include "core/HostLists.h"

#include "base/RuntimeError.h"
#include "fakes/FakePlatform.h"
#include "fakes/RecordingHost.h"
#include "fakes/Sample.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kaz {
namespace {

TEST(HostLists, WhatAHandlerDoesToTheEventDecidesWhetherItsMailIsRaisedAgain) {
    FakePlatform machine;
    Application app{machine.Services()};
    RecordingHost host;
    app.events = std::make_unique<clsDbXml>(app.Storage());
    std::vector<clsEvent>& events = Changing(*app.events);
    const struct {
        const char* what;
        int events;
        std::function<void()> handler;
        int mailsOfTwoScans;
    } cases[] = {
        {"scans", 100, [&] { HostLists(app, host); }, 100},
        {"edits the address", 1, [&] { events[0].Email = "bob@example.org"; }, 2},
        {"deletes it", 1, [&] { app.events->DeleteRecord("100000"); }, 1},
        {"reads another file", 1, [&] { events.clear(); }, 1},
        {"fails", 1, [] { throw RuntimeError(ErrorNumber::InternalError); }, 2},
        {"waits until tomorrow, and the new day scans", 1,
         [&] {
             machine.clock.AdvanceDays(1);
             events[0].CalcNextDueDate(machine.clock.Today(), app.log);
             HostLists(app, host);
         },
         2},
    };
    for (const auto& one : cases) {
        int mails = 0, depth = 0, deepest = 0;
        events.clear();
        for (int number = 0; number < one.events; ++number) {
            events.push_back(Daily(std::to_string(100000 + number), "Bill", machine.clock.Today()));
            events.back().Email = "ann@example.org";
        }
        host.onMail = [&] {
            deepest = std::max(deepest, ++depth);
            if (++mails == 1 || one.events > 1) one.handler();
            --depth;
        };
        for (int scan = 0; scan < 2; ++scan)
            HostLists(app, host);
        EXPECT_EQ(mails, one.mailsOfTwoScans) << one.what;
        EXPECT_LE(deepest, 16) << one.what;
        EXPECT_TRUE(app.mailsRaised.empty()) << one.what;
    }
}

}  // namespace
}  // namespace kaz
