// Any bytes as the file of an event database: it is loaded, and what has been saved once stays the same file.

#include "fakes/FakePlatform.h"
#include "storage/clsDbXml.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace kaz;

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

// The file has no way to write a "<" in these.
bool HoldsMarkup(const clsEvent& event) {
    const std::string texts =
        event.IDCode + event.SharedLayerName + event.Email + event.Owner() + event.Filename + event.WavFile;
    return texts.find('<') != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FakePlatform machine;
    cSharedLogging log(machine.files, machine.clock, machine.system, {"KAZ", "1.0"});
    log.ApplicationFolder("C:\\KAZ");
    cSHAREDSettings settings(machine.files, machine.locale, machine.dialogs, log);
    clsLayers layers(settings, machine.locale);
    const StorageServices services{machine.files, machine.clock, machine.random, machine.locale,
                                   log,           settings,      layers};

    const std::string file = "C:\\KAZ\\Events.xml";
    machine.files.Put(file, std::string(reinterpret_cast<const char*>(data), size));
    clsDbXml database(services);
    database.LoadDB(file);
    Require(database.SaveDB(), "not saved");
    const std::string saved = machine.files.Text(file);

    const auto& events = database.AllEvents();
    const bool markup = std::any_of(events.begin(), events.end(), HoldsMarkup);
    const std::int32_t count = database.RecordCount();
    log.NOLOGGING(markup);
    database.LoadDB(file);
    if (markup) return 0;
    Require(database.RecordCount() == count, "an event was lost");
    Require(database.SaveDB() && machine.files.Text(file) == saved, "saving again changes the file");
    return 0;
}
