#include "storage/EventCodes.h"

#include "base/RuntimeError.h"
#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace kaz {
namespace {

TEST(EventCodes, AreDrawnUntilOneIsFreeAndAllUsedBeforeTheyGiveOut) {
    StorageDesk desk;
    FakePlatform& machine = desk.machine;
    clsDbXml database(desk.Services());
    const auto eventOf = [](const std::string& code) { return OneOff(code, "", {}); };
    const auto next = [&] {
        database.StoreRecord(eventOf(""));
        return database.AllEvents().back().IDCode;
    };
    // Half a hundred-thousandth rounds to the even code.
    machine.random.script = {0.0, 0.999999, 0.000005, 0.123456, 0.123456, 0.5};
    for (const char* code : {"000000", "100000", "012346", "050000"})
        EXPECT_EQ(next(), code);
    machine.clock.AdvanceMinutes(1);
    next();
    EXPECT_EQ(machine.random.seeds.back(), machine.clock.SecondsSinceMidnight());
    // Codes that came into the collection by another way are seen too.
    next();
    Changing(database).push_back(eventOf("000010"));
    machine.random.script = {0.0001, 0.00011};
    EXPECT_EQ(next(), "000011");

    std::vector<clsEvent> full;
    for (int number = 1; number < 100000; ++number)
        if (number != 4711) full.push_back(eventOf(std::to_string(1000000 + number).substr(1)));
    Changing(database) = std::move(full);
    EXPECT_EQ((std::set{next(), next(), next()}), (std::set<std::string>{"000000", "004711", "100000"}));
    EXPECT_THROW(next(), RuntimeError);
    Changing(database).pop_back();
    next();
    EXPECT_EQ(database.RecordCount(), 100001);
}

}  // namespace
}  // namespace kaz
