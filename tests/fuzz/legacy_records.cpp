// Any bytes as an old event file: whatever they hold is read, handed over and found again in the tagged file,
// event for event and text for text.

#include "base/Text.h"
#include "fakes/FakePlatform.h"
#include "storage/clsDB2.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

using namespace kaz;

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

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
    FakePlatform machine;
    cSharedLogging log(machine.files, machine.clock, machine.system, {"KAZ", "1.0"});
    log.ApplicationFolder("C:\\KAZ");
    cSHAREDSettings settings(machine.files, machine.locale, machine.dialogs, log);
    settings.sSet("Owner", std::string("Ann"));
    clsLayers layers(settings, machine.locale);
    const StorageServices services{machine.files, machine.clock, machine.random, machine.locale,
                                   log,           settings,      layers};
    clsSounds sounds(machine.files, settings, log, [] { return std::string("C:\\KAZ"); });

    machine.files.Put("C:\\KAZ\\Events.dat", std::string(reinterpret_cast<const char*>(data), size));
    clsDB2 old(services, sounds);
    Require(old.LoadDB("C:\\KAZ\\Events.dat"), "the old file was not read");

    clsDbXml target(services);
    target.SetDBFilename("C:\\KAZ\\Events.xml");
    old.ExportToXML(target);
    Require(target.RecordCount() == old.RecordCount(), "an event was lost in memory");
    Require(target.SaveDB(), "the events were not saved");

    clsDbXml reread(services);
    reread.LoadDB("C:\\KAZ\\Events.xml");
    const std::vector<clsEvent> expected = Kept(target.AllEvents());
    const std::vector<clsEvent>& found = reread.AllEvents();
    Require(std::equal(expected.begin(), expected.end(), found.begin(), found.end(), SameTexts),
            "the file does not hold what was saved");
    return 0;
}
