#include "storage/clsLayers.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace kaz {

namespace {

std::size_t Checked(std::int16_t slot) {
    if (slot < 0 || slot >= clsLayers::kCount) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(slot);
}

std::string DefaultName(std::int16_t slot) { return "Layer " + std::to_string(slot); }

std::string SettingName(std::int16_t slot) { return "Layer" + std::to_string(slot); }

}  // namespace

clsLayers::clsLayers(cSHAREDSettings& settings, const Locale& locale) : settings_(settings), locale_(locale) {
    for (std::int16_t slot = 1; slot < kAll; ++slot)
        Layer(slot, DefaultName(slot));
    Layer(kShared, "Shared");
    Layer(kAll, "All Categories");
}

const std::string& clsLayers::Layer(std::int16_t slot) const { return names_[Checked(slot)]; }

void clsLayers::Layer(std::int16_t slot, std::string name) { names_[Checked(slot)] = std::move(name); }

// Kept on purpose: the fixed names of the first and the last slot are stored too, but never read back.
void clsLayers::SaveLayers() {
    for (std::int16_t slot = 0; slot < kCount; ++slot)
        settings_.StoreSetting(SettingName(slot), Layer(slot));
}

void clsLayers::LoadLayers() {
    for (std::int16_t slot = 1; slot < kAll; ++slot) {
        settings_.Assume(SettingName(slot), DefaultName(slot));
        Layer(slot, settings_.TextOr(SettingName(slot), DefaultName(slot)));
    }
    Layer(kShared, "Shared");
    Layer(kAll, "All Categories");
}

bool clsLayers::IsFree(std::int16_t slot, std::string_view name) { return name == DefaultName(slot); }

std::int16_t clsLayers::SeekLayerIndex(std::string_view name) {
    for (std::int16_t slot = 1; slot < kCount; ++slot)
        if (StringsEqual(Layer(slot), name, locale_.Folding())) return slot;
    for (std::int16_t slot = kAll; slot > 0; --slot) {
        if (!IsFree(slot, Layer(slot))) continue;
        Layer(slot, std::string(name));
        SaveLayers();
        return slot;
    }
    return -1;
}

}  // namespace kaz
