#include "ui/list/EventDescriber.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

class EventDescriberTest : public testing::Test {
protected:
    EventDescriberTest() {
        settings.StoreSetting("Owner", std::string("Smith"));
        layers.LoadLayers();
        event.Desc("Dentist");
        event.Owner("Smith");
        event.Layer(3);
        event.DueDate(DateValue::FromCivil(2023, 3, 20));
    }

    std::string Cell(EventColumn column) const {
        EventDescriber describer(layers, machine.locale.data, viewpoint);
        return describer.Describe(VisibleEvents(settings).See(event, EventSource::Local).value())[column];
    }

    FakePlatform machine;
    cSharedLogging log{machine.files, machine.clock, machine.system, {"KAZ", "1"}};
    cSHAREDSettings settings{machine.files, machine.locale, machine.dialogs, log};
    clsLayers layers{settings, machine.locale};
    EventViewpoint viewpoint{DateValue(45000), false, false};
    clsEvent event;
};

TEST_F(EventDescriberTest, DaysDatesAndLineBreaks) {
    EXPECT_EQ("0005", Cell(kLeftColumn));
    EXPECT_EQ("Mon", Cell(kDayColumn));
    EXPECT_EQ("03/20", Cell(kDateColumn));
    EXPECT_EQ("2023", Cell(kYearColumn));

    viewpoint.dayBeforeMonth = true;
    machine.locale.data = FakeLocale::German();
    EXPECT_EQ("20/03", Cell(kDateColumn));
    EXPECT_EQ(machine.locale.data.shortDayNames[1], Cell(kDayColumn));

    event.DueDate(DateValue(45000));
    EXPECT_EQ("0000", Cell(kLeftColumn));
    event.DueDate(DateValue(44999));
    EXPECT_EQ("---", Cell(kLeftColumn));
    event.DueDate(DateValue(45000 + 12345));
    EXPECT_EQ("12345", Cell(kLeftColumn));
    event.DueDate(DateValue(kFirstDay));
    EXPECT_EQ("0100", Cell(kYearColumn));
    event.Desc("a\rb\nc\r\nd");
    EXPECT_EQ("a b c  d", Cell(kEventColumn));
    event.Desc(std::string(clsEvent::kLongestShown + 1, 'x'));
    EXPECT_EQ(clsEvent::kLongestShown, Cell(kEventColumn).size());
}

TEST_F(EventDescriberTest, CategoryIsNamedAndAnImpossibleOneIsNot) {
    EXPECT_EQ("Layer 3", Cell(kLayerColumn));
    for (const int slot : {-1, 21, 32767}) {
        event.Layer(static_cast<std::int16_t>(slot));
        EXPECT_EQ("", Cell(kLayerColumn)) << slot;
    }
}

TEST_F(EventDescriberTest, OwnerInANetworkAndTheLaterRuleOfTheType) {
    settings.StoreSetting("Owner", std::string("Jones"));  // alone, he owns whatever another name stands on
    EXPECT_EQ("", Cell(kTypeColumn));
    EXPECT_EQ("", Cell(kOwnerColumn));
    settings.StoreSetting("Owner", std::string("Smith"));
    settings.StoreSetting("Networked", viewpoint.networked = true);
    EXPECT_EQ("Smith", Cell(kOwnerColumn));
    event.SharedEvent = true;
    EXPECT_EQ("*", Cell(kTypeColumn));
    event.Owner("smith");  // owners are compared exactly
    EXPECT_EQ("S", Cell(kTypeColumn));
    event.DueDate(DateValue(44999));
    EXPECT_EQ("E", Cell(kTypeColumn));
    event.Owner("Smith");
    EXPECT_EQ("E", Cell(kTypeColumn));
}

TEST_F(EventDescriberTest, SharedWithNamesOrAll) {
    event.ShareWithSpecific = true;
    event.ShareNames = "Ann\r\nBob\r\n";
    EXPECT_EQ("", Cell(kSharedWithColumn));
    event.SharedEvent = true;
    EXPECT_EQ("Ann,Bob", Cell(kSharedWithColumn));
    event.ShareNames = "Ann";  // without its line break the name loses its end
    EXPECT_EQ("An", Cell(kSharedWithColumn));
    event.ShareNames = "A";
    EXPECT_EQ("A", Cell(kSharedWithColumn));
    event.ShareNames = "";
    EXPECT_EQ("", Cell(kSharedWithColumn));
    event.ShareWithSpecific = false;
    EXPECT_EQ("All", Cell(kSharedWithColumn));
}

}  // namespace
}  // namespace kaz
