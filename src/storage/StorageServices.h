#pragma once

#include "platform/Platform.h"
#include "storage/clsLayers.h"
#include "support/cSHAREDSettings.h"
#include "support/cSharedLogging.h"

namespace kaz {

// What a database works with; all of it outlives the database.
struct StorageServices {
    FileSystem& files;
    const Clock& clock;
    Random& random;
    const Locale& locale;
    cSharedLogging& log;
    cSHAREDSettings& settings;
    clsLayers& layers;
};

}  // namespace kaz
