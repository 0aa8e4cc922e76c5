#pragma once

#include "platform/Platform.h"
#include "storage/clsLayers.h"
#include "support/cSHAREDSettings.h"
#include "support/cSharedLogging.h"

namespace kaz {

class ChangeJournal;

// What the databases, and all that works on them, take for granted; all of it outlives them.
struct Stores {
    Platform platform;
    cSharedLogging& log;
    cSHAREDSettings& settings;
    clsLayers& layers;
    ChangeJournal* journal = nullptr;  // none where nobody asks what became of events
};

}  // namespace kaz
