#include "commands/CategoryStep.h"

#include <memory>
#include <utility>

namespace kaz {

CategoryStep::CategoryNames CategoryStep::NamesOf(const clsLayers& layers) {
    CategoryNames names;
    for (std::int16_t slot = 0; slot < clsLayers::kCount; ++slot)
        names[static_cast<std::size_t>(slot)] = layers.Layer(slot);
    return names;
}

void CategoryStep::Rename(Application& app, const CategoryNames& names) {
    CategoryNames before = NamesOf(app.layers);
    for (std::int16_t slot = 0; slot < clsLayers::kCount; ++slot)
        app.layers.Layer(slot, names[static_cast<std::size_t>(slot)]);
    Store(app);
    if (names != before) app.undo.Add(std::make_unique<CategoryStep>(app, std::move(before), names));
}

CategoryStep::CategoryStep(Application& app, CategoryNames before, CategoryNames now)
    : UndoStep(UndoPlace::Categories, "change of category names"),
      app_(app),
      before_(std::move(before)),
      now_(std::move(now)) {}

// A name that was given by others meanwhile, such as that of a shared event's category, stays.
UndoOutcome CategoryStep::Turn() {
    UndoOutcome outcome;
    for (std::int16_t slot = 0; slot < clsLayers::kCount; ++slot) {
        const auto at = static_cast<std::size_t>(slot);
        if (before_[at] == now_[at]) continue;
        if (app_.layers.Layer(slot) == now_[at]) {
            app_.layers.Layer(slot, before_[at]);
            outcome.changed = true;
        } else {
            outcome.told += "The category \"" + app_.layers.Layer(slot) +
                            "\" has been renamed since then, and keeps its name.\r\n";
            before_[at] = now_[at];
        }
    }
    std::swap(before_, now_);
    if (outcome.changed) Store(app_);
    return outcome;
}

void CategoryStep::Store(Application& app) {
    app.layers.SaveLayers();
    // Typed by hand, so not left to the end of the program.
    app.settings.SaveSettings(app.settingsFileName);
}

}  // namespace kaz
