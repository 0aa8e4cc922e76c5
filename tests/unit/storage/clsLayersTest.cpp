#include "storage/clsLayers.h"

#include "base/RuntimeError.h"
#include "fakes/StorageDesk.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

class Categories : public testing::Test, protected StorageDesk {};

TEST_F(Categories, StoreAllSlotsButReadOnlyTheUsers) {
    settings.sSet("Layer0", std::string("Zero"));
    settings.sSet("LAYER7", std::string("Garden"));
    settings.sSet("Layer20", std::string("Twenty"));
    layers.LoadLayers();
    EXPECT_EQ(layers.Layer(0), "Shared");
    EXPECT_EQ(layers.Layer(1), "Layer 1");
    EXPECT_EQ(layers.Layer(7), "Garden");
    EXPECT_EQ(layers.Layer(20), "All Categories");
    layers.SaveLayers();
    EXPECT_EQ(settings.TextOr("Layer0", ""), "Shared");
    EXPECT_EQ(settings.TextOr("Layer20", ""), "All Categories");
    EXPECT_EQ(settings.SettingsCount(), 21);

    for (const std::int16_t slot : std::initializer_list<std::int16_t>{-1, 21}) {
        EXPECT_THROW(layers.Layer(slot), RuntimeError);
        EXPECT_THROW(layers.Layer(slot, "x"), RuntimeError);
    }
}

TEST_F(Categories, ANewNameTakesTheHighestFreeSlot) {
    EXPECT_EQ(layers.SeekLayerIndex("Travel"), 19);
    EXPECT_EQ(layers.SeekLayerIndex(" TRAVEL "), 19);
    EXPECT_EQ(settings.TextOr("Layer19", ""), "Travel");
    EXPECT_EQ(layers.SeekLayerIndex("all categories"), 20);
    layers.Layer(18, "Layer 5");  // a user's name, though it looks like a default one
    EXPECT_EQ(layers.SeekLayerIndex("Shared"), 17);
    for (int n = 16; n > 0; --n)
        EXPECT_EQ(layers.SeekLayerIndex("Name " + std::to_string(n)), n);
    EXPECT_EQ(layers.SeekLayerIndex("One more"), -1);
    EXPECT_EQ(layers.SeekLayerIndex("Name 5"), 5);
}

}  // namespace
}  // namespace kaz
