#pragma once

#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "support/cSHAREDSetting.h"
#include "support/cSharedLogging.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kaz {

// The options of the program: named values in memory, loaded from and saved to one plain text file, and numbered sets
// on top of them. Names have no regard to letter case and never hold a comma. Operations trap their own errors and
// log them; a failed look-up yields the default.
class cSHAREDSettings {
public:
    cSHAREDSettings(FileSystem& files, const Locale& locale, Dialogs& dialogs, cSharedLogging& log);

    std::int32_t SettingsCount() const;
    // `index` counts from 1; "" outside the list.
    std::string SettingNameByIndex(std::int32_t index) const;

    void sSet(std::string_view name, SettingValue value) { StoreSetting(name, std::move(value)); }
    void StoreSetting(std::string_view name, SettingValue value);

    SettingValue sGetWD(std::string_view name, const SettingValue& fallback) const {
        return RetrieveWithDefault(name, fallback);
    }
    SettingValue RetrieveWithDefault(std::string_view name, const SettingValue& fallback) const;
    void DeleteAllSettings();
    SettingValue sGet(std::string_view name, const SettingValue& fallback = {}) const {
        return RetrieveSetting(name, fallback);
    }
    SettingValue RetrieveSetting(std::string_view name, const SettingValue& fallback = {}) const;
    bool IsSettingPresent(std::string_view name) const;

    // False when nothing was written; the old file is then as it was.
    bool SaveSettings(const std::string& fileName);
    void LoadSettings(const std::string& fileName);

    void DeleteSettingByName(std::string_view name) { DeleteSetting(name); }
    void DeleteSetting(std::string_view name);

    std::int32_t AddToSet(std::string_view setName, SettingValue value);
    std::int32_t LastIndexInSet(std::string_view setName) const;
    void DeleteFromSetByValue(std::string_view setName, const SettingValue& value);
    bool ValueInSet(std::string_view setName, const SettingValue& value) const;
    std::int32_t SetCount(std::string_view setName) const;
    void DeleteASet(std::string_view setName);

    // What nearly every caller wants of a setting.
    bool Flag(std::string_view name) const { return ToFlag(sGet(name, false)); }
    std::string TextOr(std::string_view name, const std::string& fallback) const {
        return ToText(sGet(name, fallback));
    }

private:
    FileSystem& files_;
    const Locale& locale_;
    Dialogs& dialogs_;
    cSharedLogging& log_;
    std::vector<cSHAREDSetting> settings_;
    std::unordered_map<std::string, std::size_t> positions_;  // upper-cased name -> place in settings_
};

}  // namespace kaz
