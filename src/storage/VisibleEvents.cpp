#include "storage/VisibleEvents.h"

#include "storage/Owner.h"

namespace kaz {

VisibleEvents::VisibleEvents(const cSHAREDSettings& settings)
    : user_(CurrentOwner(settings)),
      networked_(settings.Flag("Networked")) {}

}  // namespace kaz
