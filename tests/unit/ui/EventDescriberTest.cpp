#include "ui/list/EventDescriber.h"

#include "fakes/Sample.h"
#include "fakes/StorageDesk.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

constexpr DateValue kToday{45000}, kMonday{45005};

clsEvent On(DateValue due) { return Of("Smith", OneOff("000001", "Dentist", due)); }
clsEvent Saying(const std::string& text) { return Of("Smith", OneOff("000001", text, kMonday)); }
clsEvent Filed(int slot) {
    clsEvent event = On(kMonday);
    event.Layer(static_cast<std::int16_t>(slot));
    return event;
}
clsEvent SharedOn(DateValue due, const std::string& owner = "Smith") { return SharedBy(owner, On(due)); }
clsEvent SharedWith(const std::string& names, bool isShared = true) {
    clsEvent event = On(kMonday);
    event.SharedEvent = isShared;
    event.ShareWithSpecific = true;
    event.ShareNames = names;
    return event;
}

TEST(EventDescriber, SaysInEachColumnWhatAnEventIs) {
    const struct {
        EventColumn column;
        std::string cell;
        clsEvent event;
        const char* user = "Smith";
        bool networked = false;
    } cases[] = {
        {kLeftColumn, "0005", On(kMonday)},
        {kLeftColumn, "0000", On(kToday)},
        {kLeftColumn, "---", On(kToday.PlusDays(-1))},
        {kLeftColumn, "12345", On(kToday.PlusDays(12345))},
        {kDayColumn, "Mon", On(kMonday)},
        {kDateColumn, "03/20", On(kMonday)},
        {kYearColumn, "2023", On(kMonday)},
        {kYearColumn, "0100", On(DateValue(kFirstDay))},
        {kEventColumn, "a b c  d", Saying("a\rb\nc\r\nd")},
        {kEventColumn, std::string(clsEvent::kLongestShown, 'x'), Saying(std::string(100001, 'x'))},
        {kLayerColumn, "Layer 3", Filed(3)},
        {kLayerColumn, "", Filed(-1)},
        {kLayerColumn, "", Filed(21)},
        {kLayerColumn, "", Filed(32767)},
        {kTypeColumn, "", On(kMonday), "Jones"},  // alone, he owns whatever another name stands on
        {kOwnerColumn, "", On(kMonday), "Jones"},
        {kOwnerColumn, "Smith", On(kMonday), "Smith", true},
        {kTypeColumn, "*", SharedOn(kMonday), "Smith", true},
        {kTypeColumn, "S", SharedOn(kMonday, "smith"), "Smith", true},  // owners are compared exactly
        {kTypeColumn, "E", SharedOn(kToday.PlusDays(-1), "smith"), "Smith", true},
        {kTypeColumn, "E", SharedOn(kToday.PlusDays(-1)), "Smith", true},
        {kTimeColumn, "", On(kMonday)},
        {kTimeColumn, "09:05", WithAlarm(On(kMonday), 9, 5)},
        {kRepeatsColumn, "", On(kMonday)},
        {kRepeatsColumn, "every 3 days", Daily("1", "Pills", kMonday, 3)},
        {kSharedWithColumn, "All", SharedOn(kMonday)},
        {kSharedWithColumn, "", SharedWith("Ann\r\nBob\r\n", false)},
        {kSharedWithColumn, "Ann,Bob", SharedWith("Ann\r\nBob\r\n")},
        {kSharedWithColumn, "An", SharedWith("Ann")},  // without its line break the name loses its end
        {kSharedWithColumn, "A", SharedWith("A")},
        {kSharedWithColumn, "", SharedWith("")},
    };
    for (const auto& each : cases) {
        StorageDesk desk(each.user);
        desk.settings.StoreSetting("Networked", each.networked);
        desk.layers.LoadLayers();
        EventDescriber describer(desk.layers, desk.machine.locale.data, {kToday, each.networked, false});
        const auto seen = VisibleEvents(desk.settings).See(each.event, EventSource::Local).value();
        EXPECT_EQ(each.cell, describer.Describe(seen)[each.column]) << "column " << each.column;
    }
    StorageDesk desk("Smith");
    const clsEvent event = On(kMonday);
    desk.machine.locale.data = FakeLocale::German();
    EventDescriber german(desk.layers, desk.machine.locale.data, {kToday, false, true});
    const auto& cells = german.Describe(VisibleEvents(desk.settings).See(event, EventSource::Local).value());
    EXPECT_EQ("20/03", cells[kDateColumn]);
    EXPECT_EQ("Mo", cells[kDayColumn]);
}

}  // namespace
}  // namespace kaz
