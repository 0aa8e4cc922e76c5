#pragma once

#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/Locale.h"
#include "support/cSHAREDSetting.h"
#include "support/cSharedLogging.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kaz {

// The options of the program: named values in memory, loaded from and saved to one plain text file, and
// numbered sets on top of them. Names have no regard to letter case and never hold a comma. Operations trap
// their own errors and log them; a failed look-up yields the default.
class cSHAREDSettings {
public:
    cSHAREDSettings(FileSystem& files, const Locale& locale, Dialogs& dialogs, cSharedLogging& log);

    // Promised: the program itself never calls these.
    std::int32_t SettingsCount() const;
    // `index` counts from 1; "" outside the list.
    std::string SettingNameByIndex(std::int32_t index) const;

    void sSet(std::string_view name, SettingValue value) { StoreSetting(name, std::move(value)); }
    void StoreSetting(std::string_view name, SettingValue value);
    // What an absent setting stands for: to store that is no change.
    void Assume(std::string_view name, const SettingValue& value);

    // Promised: the program itself never calls it.
    SettingValue sGetWD(std::string_view name, const SettingValue& fallback) const {
        return RetrieveWithDefault(name, fallback);
    }
    SettingValue RetrieveWithDefault(std::string_view name, const SettingValue& fallback) const;
    // Promised: the program itself never calls it.
    void DeleteAllSettings();
    SettingValue sGet(std::string_view name, const SettingValue& fallback = {}) const {
        return RetrieveSetting(name, fallback);
    }
    SettingValue RetrieveSetting(std::string_view name, const SettingValue& fallback = {}) const;
    bool IsSettingPresent(std::string_view name) const;

    // False when nothing was written; the old file is then as it was, and the user has been told when it may
    // not be written. A file that LoadSettings could not read is not written over. When another program has
    // changed the file since it was last read or written here, only what was changed here goes into it; this
    // memory takes over nothing of theirs before the next load.
    // What the user has not asked for is not told.
    enum class Failure { Told, Quiet };
    bool SaveSettings(const std::string& fileName, Failure failure = Failure::Told);
    // Why the last save failed; nothing after one that did not.
    const std::optional<ErrorInfo>& SaveFault() const { return saveFault_; }
    // What a save has to bring into the file.
    std::string UnsavedText() const;
    // Where a damaged file was kept before the last save took its place; told once.
    std::string TakeDamagedCopy() { return std::exchange(damagedCopy_, {}); }
    // Stores what the lines of a settings file say.
    void TakeLines(std::string_view text);
    // Writes these settings alone into the file, where they were changed here. Without a word to the user:
    // for what the program remembers by itself.
    void SaveOnly(const std::string& fileName, std::span<const std::string_view> names);
    void LoadSettings(const std::string& fileName);

    // Promised: the program itself never calls it.
    void DeleteSettingByName(std::string_view name) { DeleteSetting(name); }
    void DeleteSetting(std::string_view name);

    // A set is kept as settings: its name and "_INDEX" hold the highest index ever given, its name, "_" and
    // an index a member. Members are compared as they are in the file, so a number equals its text.
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
    static constexpr std::string_view kModule = "cSHAREDSettings";

    template <class Result, class Step>
    Result Trapped(const char* procedure, Result otherwise, Step step) const;
    // Where the setting is in the list, if it is there.
    std::optional<std::size_t> Find(std::string_view name) const;
    // What the locale's words for yes and no stand for, and "TRUE" and "FALSE" in every locale.
    std::optional<bool> AsBoolean(std::string_view text) const;
    // The value as it is after a save and a load, for comparisons.
    std::string SavedForm(const SettingValue& value) const;
    static std::string LineOf(const cSHAREDSetting& setting);
    std::string FileText() const;
    bool IsChanged(const std::string& key, const std::string& line) const;
    std::string TextFor(const std::string& fileName);
    std::string KeepDamaged(const std::string& fileName);
    std::string MergedInto(std::string_view file,
                           const std::function<bool(const std::string& key)>& wanted) const;
    void Remember(const std::string& text);
    void Tell(const char* text) noexcept;
    // Whether a setting is a member of the set.
    std::function<bool(const cSHAREDSetting&)> MemberOf(std::string_view setName) const;
    void Reindex();

    FileSystem& files_;
    const Locale& locale_;
    Dialogs& dialogs_;
    cSharedLogging& log_;
    std::vector<cSHAREDSetting> settings_;
    std::unordered_map<std::string, std::size_t> positions_;  // upper-cased name -> place in settings_
    std::optional<ErrorInfo> saveFault_;
    std::string neverRead_;  // a file that is there but could not be read
    // When the file was last read or written: its name, its text, whether this memory has all of it, and the
    // lines of this memory by their keys.
    std::string fileName_;
    std::string text_;
    bool isWhole_ = false;
    std::unordered_map<std::string, std::string> lines_;
    std::unordered_map<std::string, std::string> assumed_;  // of those that are absent
    std::string damagedCopy_;
};

}  // namespace kaz
