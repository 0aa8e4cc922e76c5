// Any bytes as the file beside the events: what was understood is there after saving, what was not stays, and
// what has been saved once stays the same.

#include "base/Utf8.h"
#include "fakes/MemoryFileSystem.h"
#include "fakes/StorageDesk.h"
#include "fuzz/Require.h"
#include "storage/EventXml.h"
#include "storage/SideFile.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaz;
    static StorageDesk desk;
    MemoryFileSystem files;
    files.Put("C:\\Events.xml", "");
    files.Put("C:\\Events.side", std::string(reinterpret_cast<const char*>(data), size));
    SideFile side(files, desk.log);
    side.Open("C:\\Events.side");
    std::vector<clsEvent> events(2);
    events[0].IDCode = "100001";
    events[0].Desc("Lukasz ?");
    side.GiveExtras(events);
    Require(IsUtf8(events[0].Desc()) && events[0].Desc().find('\0') == std::string::npos, "a text is broken");
    std::string file;
    EventXml::AppendBlock(file, events[0]);
    Require(file.find("<Desc>Lukasz%20?</Desc>") != std::string::npos, "a whole text changes its field");
    side.Put(events[0], &events[1]);
    const SideFile::Lines lines = side.All();
    Require(side.Save(), "it could not be saved");
    Require(!side.HasUnsaved(), "something is not saved");
    const std::string saved = files.Text("C:\\Events.side");
    SideFile again(files, desk.log);
    again.Open("C:\\Events.side");
    Require(again.All() == lines, "an entry was lost");
    again.Add({"answered", {"Events", "1", "2"}, DateValue(45000), "%\t\xFF\r\n"});
    Require(again.Save(), "it could not be saved once more");
    again.Remove({"answered", {"Events", "1", "2"}, DateValue(45000), "%\t\xFF\r\n"});
    Require(again.Save() && files.Text("C:\\Events.side") == saved, "saving again changes the file");
    return 0;
}
