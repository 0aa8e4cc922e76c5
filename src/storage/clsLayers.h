#pragma once

#include "support/cSHAREDSettings.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kaz {

// The category names: 21 slots, of which 0 and 20 are fixed and 1 to 19 are the user's.
class clsLayers {
public:
    static constexpr std::int16_t kShared = 0;
    static constexpr std::int16_t kFirstOwn = 1;
    static constexpr std::int16_t kAll = 20;  // as a filter it lets every event pass
    static constexpr std::int16_t kCount = 21;

    static bool Passes(std::int16_t category, std::int16_t filter) {
        return filter == kAll || category == filter;
    }
    // An event without a category of its own is in the first one.
    static std::int16_t OwnOr(std::int16_t category) { return category == kShared ? kFirstOwn : category; }

    // Whether that name of the slot is the one which it has before anybody uses it.
    static bool IsFree(std::int16_t slot, std::string_view name);

    // The slots have their default names until LoadLayers. Both outlive the object.
    clsLayers(cSHAREDSettings& settings, const Locale& locale);

    // Throws SubscriptOutOfRange for a slot outside 0 to 20.
    const std::string& Layer(std::int16_t slot) const;
    void Layer(std::int16_t slot, std::string name);

    // To and from the settings in memory.
    void SaveLayers();
    void LoadLayers();

    // The slot with that name (1 to 20). A new name takes the highest free slot and
    // is saved; -1 when none is free.
    std::int16_t SeekLayerIndex(std::string_view name);

private:
    cSHAREDSettings& settings_;
    const Locale& locale_;
    std::array<std::string, kCount> names_;
};

}  // namespace kaz
