// Any bytes as the file of an event database: it is loaded, and what has been saved once stays the same file.
// What is no event file stays as it is.

#include "fakes/StorageDesk.h"
#include "fuzz/Require.h"
#include "storage/clsDbXml.h"

#include <algorithm>
#include <cstdint>

namespace {

using namespace kaz;

// The file has no way to write a "<" in these.
bool HoldsMarkup(const clsEvent& event) {
    const std::string texts =
        event.IDCode + event.SharedLayerName + event.Email + event.Owner() + event.Filename + event.WavFile;
    return texts.find('<') != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    StorageDesk desk;

    const std::string file = "C:\\KAZ\\Events.xml";
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    desk.machine.files.Put(file, bytes);
    clsDbXml database(desk.Services());
    database.LoadDB(file);
    if (database.State() == FileState::Damaged) {
        Require(!database.SaveDB() && desk.machine.files.Text(file) == bytes,
                "a damaged file was written over");
        return 0;
    }
    Require(database.SaveDB(), "not saved");
    const std::string saved = desk.machine.files.Text(file);

    const auto& events = database.AllEvents();
    const bool markup = std::any_of(events.begin(), events.end(), HoldsMarkup);
    const std::int32_t count = database.RecordCount();
    desk.log.NOLOGGING(markup);
    database.LoadDB(file);
    if (markup) return 0;
    Require(database.RecordCount() == count, "an event was lost");
    Require(database.SaveDB() && desk.machine.files.Text(file) == saved, "saving again changes the file");
    return 0;
}
