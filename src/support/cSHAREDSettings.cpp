#include "support/cSHAREDSettings.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "support/SettingsText.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

constexpr const char* kReadOnly = "Your settings file is read-only and I can't change it. Save cancelled.";
constexpr const char* kNeverRead =
    "Your settings file could not be read, so I leave it as it is. Save cancelled.";

std::string CleanName(std::string_view name) {
    std::string clean(name);
    std::erase(clean, ',');
    return clean;
}

std::string KeyOf(std::string_view name) { return UpperAscii(CleanName(name)); }

// The first line, which is taken off the text.
std::string_view TakeLine(std::string_view& text) {
    const auto end = text.find(kLineBreak);
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineBreak.size());
    return line;
}

bool IsZero(const SettingValue& value) {
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number == 0;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number == 0;
    if (const auto* flag = std::get_if<bool>(&value)) return !*flag;
    return std::holds_alternative<std::monostate>(value);
}

}  // namespace

cSHAREDSettings::cSHAREDSettings(FileSystem& files, const Locale& locale, Dialogs& dialogs,
                                 cSharedLogging& log)
    : files_(files),
      locale_(locale),
      dialogs_(dialogs),
      log_(log) {}

template <class Result, class Step>
Result cSHAREDSettings::Trapped(const char* procedure, Result otherwise, Step step) const {
    ErrorTrap trap(log_, procedure, kModule);
    trap([&] { otherwise = step(); });
    return otherwise;
}

std::int32_t cSHAREDSettings::SettingsCount() const { return static_cast<std::int32_t>(settings_.size()); }

std::string cSHAREDSettings::SettingNameByIndex(std::int32_t index) const {
    if (index < 1 || index > SettingsCount()) return {};
    return settings_[static_cast<std::size_t>(index) - 1].Name;
}

void cSHAREDSettings::StoreSetting(std::string_view name, SettingValue value) {
    ErrorTrap trap(log_, "StoreSetting", kModule);
    trap([&] {
        if (const bool* flag = std::get_if<bool>(&value)) value = static_cast<std::int16_t>(*flag ? -1 : 0);
        if (const auto place = Find(name)) {
            settings_[*place].KeyValue = std::move(value);
            return;
        }
        settings_.push_back({CleanName(name), std::move(value)});
        positions_.emplace(KeyOf(name), settings_.size() - 1);
    });
}

void cSHAREDSettings::Assume(std::string_view name, const SettingValue& value) {
    assumed_[KeyOf(name)] = LineOf({CleanName(name), value});
}

SettingValue cSHAREDSettings::RetrieveWithDefault(std::string_view name, const SettingValue& fallback) const {
    SettingValue value = RetrieveSetting(name, fallback);
    // Kept on purpose: here a stored number 0 or False is as good as absent, so an option whose default is
    // True has to be read with sGet. A text is no number, not even "0".
    return IsZero(value) ? fallback : value;
}

SettingValue cSHAREDSettings::RetrieveSetting(std::string_view name, const SettingValue& fallback) const {
    return Trapped("RetrieveSetting", fallback, [&]() -> SettingValue {
        const auto place = Find(name);
        if (!place) return fallback;
        const SettingValue& value = settings_[*place].KeyValue;
        const auto* text = std::get_if<std::string>(&value);
        if (const auto flag = text ? AsBoolean(*text) : std::nullopt) return *flag;
        return value;
    });
}

bool cSHAREDSettings::IsSettingPresent(std::string_view name) const {
    return Trapped("IsSettingPresent", false, [&] { return Find(name).has_value(); });
}

void cSHAREDSettings::DeleteAllSettings() {
    settings_.clear();
    positions_.clear();
}

void cSHAREDSettings::DeleteSetting(std::string_view name) {
    ErrorTrap trap(log_, "DeleteSetting", kModule);
    trap([&] {
        const auto place = Find(name);
        if (!place) return;
        settings_.erase(settings_.begin() + static_cast<std::ptrdiff_t>(*place));
        Reindex();
    });
}

bool cSHAREDSettings::SaveSettings(const std::string& fileName, Failure failure) {
    try {
        if (!neverRead_.empty() && locale_.Folding().Equal(neverRead_, fileName)) {
            Tell(kNeverRead);
            return false;
        }
        const std::string text = TextFor(fileName);
        WriteSettingsText(files_, fileName, text);
        fileName_ = fileName;
        Remember(text);
        saveFault_.reset();
        return true;
    } catch (...) {
        const ErrorInfo error = CurrentError();
        saveFault_ = error;
        log_.LogError(error, "SaveSettings", kModule);
        if (failure == Failure::Told && error.number == static_cast<int>(ErrorNumber::PermissionDenied))
            Tell(kReadOnly);
        return false;
    }
}

std::string cSHAREDSettings::LineOf(const cSHAREDSetting& setting) {
    std::string line =
        UpperAscii(setting.Name).append(",").append(ToText(setting.KeyValue)).append(kLineBreak);
    // A zero would make the whole file a damaged one.
    std::erase(line, '\0');
    return line;
}

void cSHAREDSettings::SaveOnly(const std::string& fileName, std::span<const std::string_view> names) {
    ErrorTrap trap(log_, "SaveOnly", kModule);
    trap([&] {
        // Without the others it would be a file of somebody who has chosen nothing.
        if (!neverRead_.empty() || !FileExists(files_, fileName)) return;
        const auto wanted = [&](const std::string& key) {
            return std::any_of(names.begin(), names.end(),
                               [&](std::string_view name) { return KeyOf(name) == key; });
        };
        const std::string before = ReadSettingsText(files_, fileName);
        const std::string text = MergedInto(before, wanted);
        if (text != before) WriteSettingsText(files_, fileName, text);
        isWhole_ = isWhole_ && text_ == before;
        text_ = text;
        for (const std::string_view name : names) {
            lines_.erase(KeyOf(name));
            if (const auto place = Find(name)) lines_[KeyOf(name)] = LineOf(settings_[*place]);
        }
    });
}

std::string cSHAREDSettings::TextFor(const std::string& fileName) {
    if (!locale_.Folding().Equal(fileName_, fileName)) return FileText();
    std::string file;
    try {
        file = ReadSettingsText(files_, fileName);
    } catch (const DamagedSettings&) {
        damagedCopy_ = KeepDamaged(fileName);
    }
    // Of one that has gone, or is damaged, it is what was last seen.
    if (file.empty()) file = text_;
    if (isWhole_ && file == text_) return FileText();
    return MergedInto(file, [](const std::string&) { return true; });
}

std::string cSHAREDSettings::KeepDamaged(const std::string& fileName) {
    std::string kept = WithExtension(fileName, " (damaged).ini");
    WriteWholeFile(files_, kept, ReadWholeFile(files_, fileName));
    log_.LogEvent(fileName + " is damaged and was kept as " + kept);
    return kept;
}

bool cSHAREDSettings::IsChanged(const std::string& key, const std::string& line) const {
    if (const auto known = lines_.find(key); known != lines_.end()) return known->second != line;
    const auto assumed = assumed_.find(key);
    return assumed == assumed_.end() || assumed->second != line;
}

// What was changed here goes into the lines of the file; a line that the file has lost comes back, since
// there is hardly a reason to remove one.
std::string cSHAREDSettings::MergedInto(std::string_view file,
                                        const std::function<bool(const std::string& key)>& wanted) const {
    std::string text;
    std::unordered_set<std::string> written;
    while (!file.empty()) {
        const bool isLast = file.find(kLineBreak) == std::string_view::npos;
        const std::string_view line = TakeLine(file);
        const std::string key = KeyOf(line.substr(0, line.find(',')));
        const auto place = Find(key);
        const std::string own = place ? LineOf(settings_[*place]) : std::string();
        const bool isCut = place && isLast && own.starts_with(line);
        const bool isChanged = wanted(key) && (place ? IsChanged(key, own) : lines_.contains(key));
        if (!isCut && !isChanged)
            text.append(line).append(kLineBreak);
        else if (!written.contains(key))
            text += own;
        written.insert(key);
    }
    for (const cSHAREDSetting& setting : settings_)
        if (const std::string key = KeyOf(setting.Name); wanted(key) && !written.contains(key))
            text += LineOf(setting);
    return text;
}

void cSHAREDSettings::Remember(const std::string& text) {
    text_ = text;
    isWhole_ = text == FileText();
    lines_.clear();
    for (const cSHAREDSetting& setting : settings_)
        lines_[KeyOf(setting.Name)] = LineOf(setting);
}

// All of it, where there is no file that has the rest.
std::string cSHAREDSettings::UnsavedText() const {
    std::string text;
    for (const cSHAREDSetting& setting : settings_)
        if (const std::string line = LineOf(setting); IsChanged(KeyOf(setting.Name), line)) text += line;
    const bool isWhole =
        text.empty() || (FolderExists(files_, FolderOf(fileName_)) && !FileExists(files_, fileName_));
    return isWhole ? FileText() : text;
}

std::string cSHAREDSettings::FileText() const {
    std::string text;
    for (const cSHAREDSetting& setting : settings_)
        text += LineOf(setting);
    return text;
}

void cSHAREDSettings::Tell(const char* text) noexcept {
    ErrorTrap trap(log_, "SaveSettings", kModule);
    trap([&] {
        log_.LogEvent(text);
        dialogs_.Message(text);
    });
}

void cSHAREDSettings::LoadSettings(const std::string& fileName) {
    ErrorTrap trap(log_, "LoadSettings", kModule);
    trap([&] {
        DeleteAllSettings();
        neverRead_ = fileName;
        const std::string text = ReadSettingsText(files_, fileName);
        TakeLines(text);
        neverRead_.clear();
        fileName_ = fileName;
        Remember(text);
        isWhole_ = true;
    });
}

void cSHAREDSettings::TakeLines(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        const auto comma = line.find(',');
        if (comma == std::string_view::npos || Trim(line.substr(0, comma)).empty()) continue;
        const std::string_view value = line.substr(comma + 1);
        if (const auto flag = AsBoolean(value))
            StoreSetting(line.substr(0, comma), *flag);
        else
            StoreSetting(line.substr(0, comma), std::string(value));
    }
}

std::optional<std::size_t> cSHAREDSettings::Find(std::string_view name) const {
    const auto found = positions_.find(KeyOf(name));
    if (found == positions_.end()) return std::nullopt;
    return found->second;
}

std::optional<bool> cSHAREDSettings::AsBoolean(std::string_view text) const {
    const auto is = [&](std::string_view word) { return StringsEqual(text, word, locale_.Folding()); };
    if (is("FALSE") || is(locale_.Data().falseWord)) return false;
    if (is("TRUE") || is(locale_.Data().trueWord)) return true;
    return std::nullopt;
}

void cSHAREDSettings::Reindex() {
    positions_.clear();
    for (std::size_t place = 0; place < settings_.size(); ++place)
        positions_.emplace(KeyOf(settings_[place].Name), place);
}

}  // namespace kaz
