// Any bytes as the settings file: it is loaded, its sets can be worked on, and what has been saved once stays
// the same.

#include "fakes/FakePlatform.h"
#include "support/cSHAREDSettings.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kaz;
    FakePlatform machine;
    cSharedLogging log(machine.files, machine.clock, machine.system, {"KAZ", "1.0"});
    log.ApplicationFolder("C:\\KAZ");
    cSHAREDSettings settings(machine.files, machine.locale, machine.dialogs, log);

    const std::string file = "C:\\KAZ\\Kaz.ini";
    machine.files.Put(file, std::string(reinterpret_cast<const char*>(data), size));
    settings.LoadSettings(file);
    for (std::int32_t index = 0; index <= settings.SettingsCount() + 1; ++index) {
        const std::string name = settings.SettingNameByIndex(index);
        settings.Flag(name);
        ToNumber(settings.sGetWD(name, std::int16_t{1}));
        settings.SetCount(name);
    }
    Require(settings.SaveSettings(file), "not saved");
    const std::string saved = machine.files.Text(file);
    settings.LoadSettings(file);
    Require(settings.SaveSettings(file) && machine.files.Text(file) == saved,
            "saving again changes the file");

    // A set whose index has come to its end takes nothing more.
    if (settings.AddToSet("TrustedFiles", std::string("new")) > 0)
        Require(settings.ValueInSet("TrustedFiles", std::string("new")), "a value is not found again");
    settings.DeleteFromSetByValue("TrustedFiles", std::string("new"));
    settings.DeleteASet("TrustedFiles");
    return 0;
}
