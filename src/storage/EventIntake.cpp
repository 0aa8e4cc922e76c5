#include "storage/EventIntake.h"

#include "base/Text.h"
#include "storage/Owner.h"

#include <algorithm>

namespace kaz {

EventIntake::EventIntake(const StorageServices& services, bool foreign)
    : services_(services),
      foreign_(foreign),
      user_(CurrentOwner(services.settings)) {}

bool EventIntake::Admit(clsEvent& event) const {
    AdoptOrphan(event, user_);
    return !event.Deleted && (!foreign_ || AdmitForeign(event));
}

// A shared event without a list of names is meant for everybody.
bool EventIntake::AdmitForeign(clsEvent& event) const {
    const CaseFolding& letters = services_.locale.Folding();
    if (event.SharedEvent && event.ShareWithSpecific && !event.NameInShared(user_, letters)) return false;
    const std::string& category = event.SharedLayerName;
    // Slot 0 is everybody's, and has its name from the program.
    if (category.empty() || category == services_.layers.Layer(clsLayers::kShared)) return true;
    // The name was written by somebody else and would become a line of the settings file.
    if (std::any_of(category.begin(), category.end(), IsControl)) return true;
    const std::int16_t slot = services_.layers.SeekLayerIndex(category);
    if (slot >= 0) event.Layer(slot);
    return true;
}

}  // namespace kaz
