// Any bytes as an old event file: whatever they hold is read, handed over and found again in the tagged file,
// event for event and text for text.

#include "base/Text.h"
#include "fakes/StorageDesk.h"
#include "fuzz/Require.h"
#include "storage/clsDB2.h"

#include <algorithm>
#include <memory>

namespace {

using namespace kaz;

std::vector<clsEvent> Kept(std::vector<clsEvent> events) {
    std::erase_if(events, [](const clsEvent& event) { return event.Deleted; });
    return events;
}

bool SameTexts(const clsEvent& a, const clsEvent& b) {
    return a.IDCode == b.IDCode && a.Owner() == b.Owner() && a.Desc() == b.Desc() && a.Email == b.Email &&
           a.Filename == b.Filename && a.DueDate() == b.DueDate() && a.Layer() == b.Layer();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    StorageDesk desk("Ann");
    clsSounds sounds(desk.machine.files, desk.settings, desk.log, [] { return std::string("C:\\KAZ"); });

    desk.machine.files.Put("C:\\KAZ\\Events.dat", std::string(reinterpret_cast<const char*>(data), size));
    clsDB2 old(desk.Services(), sounds);
    Require(old.LoadDB("C:\\KAZ\\Events.dat"), "the old file was not read");

    clsDbXml target(desk.Services());
    target.SetDBFilename("C:\\KAZ\\Events.xml");
    old.ExportToXML(target);
    Require(target.RecordCount() == old.RecordCount(), "an event was lost in memory");
    Require(target.SaveDB(), "the events were not saved");

    clsDbXml reread(desk.Services());
    reread.LoadDB("C:\\KAZ\\Events.xml");
    const std::vector<clsEvent> expected = Kept(target.AllEvents());
    const std::vector<clsEvent>& found = reread.AllEvents();
    Require(std::equal(expected.begin(), expected.end(), found.begin(), found.end(), SameTexts),
            "the file does not hold what was saved");
    return 0;
}
