// Any bytes as the settings file: it is loaded, its sets can be worked on, and what has been saved once stays
// the same; or it is left alone.

#include "base/Utf8.h"
#include "fakes/StorageDesk.h"
#include "fuzz/Require.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaz;
    StorageDesk desk;

    const std::string file = "C:\\KAZ\\Kaz.ini";
    desk.machine.files.Put(file, std::string(reinterpret_cast<const char*>(data), size));
    desk.settings.LoadSettings(file);
    for (std::int32_t index = 0; index <= desk.settings.SettingsCount() + 1; ++index) {
        const std::string name = desk.settings.SettingNameByIndex(index);
        desk.settings.Flag(name);
        ToNumber(desk.settings.sGetWD(name, std::int16_t{1}));
        desk.settings.SetCount(name);
    }
    const std::string given = desk.machine.files.Text(file);
    const bool wasSaved = desk.settings.SaveSettings(file);
    const std::string saved = desk.machine.files.Text(file);
    Require(wasSaved || saved == given, "a file that could not be read was written over");
    // What looks like UTF-8 once more is taken for it.
    if (wasSaved && (IsAscii(saved) || !IsUtf8(saved))) {
        desk.settings.LoadSettings(file);
        Require(desk.settings.SaveSettings(file) && desk.machine.files.Text(file) == saved,
                "saving again changes the file");
    }

    // A set whose index has come to its end takes nothing more.
    if (desk.settings.AddToSet("TrustedFiles", std::string("new")) > 0)
        Require(desk.settings.ValueInSet("TrustedFiles", std::string("new")), "a value is not found again");
    desk.settings.DeleteFromSetByValue("TrustedFiles", std::string("new"));
    desk.settings.DeleteASet("TrustedFiles");
    return 0;
}
