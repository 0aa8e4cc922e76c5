// The numbered sets of cSHAREDSettings.

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "support/cSHAREDSettings.h"

#include <algorithm>
#include <charconv>

namespace kaz {

namespace {

std::string BaseOf(std::string_view setName) {
    std::string base = UpperAscii(setName);
    std::erase(base, ',');
    return base + "_";
}

std::string IndexName(std::string_view setName) { return BaseOf(setName) + "INDEX"; }

// 0 when the text is not an index as it is written: digits without a leading zero.
std::int32_t MemberIndex(std::string_view digits) {
    if (digits.empty() || digits.front() < '1' || digits.front() > '9') return 0;
    std::int32_t index = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, index);
    return stop == end && error == std::errc{} ? index : 0;
}

}  // namespace

std::int32_t cSHAREDSettings::AddToSet(std::string_view setName, SettingValue value) {
    std::int32_t added = 0;
    ErrorTrap trap(log_, "AddToSet", kModule);
    trap([&] {
        const std::string base = BaseOf(setName);
        std::int32_t index = std::max(LastIndexInSet(setName), 0);
        std::string name;
        do {
            if (index == INT32_MAX) throw RuntimeError(ErrorNumber::Overflow);
            name = base + std::to_string(++index);
        } while (IsSettingPresent(name));
        StoreSetting(IndexName(setName), index);
        StoreSetting(name, std::move(value));
        added = index;
    });
    return added;
}

std::int32_t cSHAREDSettings::LastIndexInSet(std::string_view setName) const {
    std::int32_t last = 0;
    ErrorTrap trap(log_, "LastIndexInSet", kModule);
    trap([&] { last = ToNumber(RetrieveSetting(IndexName(setName))); });
    return last;
}

// The list is gone through once instead of the indices 1 to the last, because the last one comes from a file
// and may be two thousand million.
std::function<bool(const cSHAREDSetting&)> cSHAREDSettings::MemberOf(std::string_view setName) const {
    return [base = BaseOf(setName), last = LastIndexInSet(setName)](const cSHAREDSetting& setting) {
        const std::string_view name = setting.Name;
        if (!CaseFolding::Ascii().Equal(name.substr(0, base.size()), base)) return false;
        const std::int32_t index = MemberIndex(name.substr(base.size()));
        return index > 0 && index <= last;
    };
}

std::string cSHAREDSettings::SavedForm(const SettingValue& value) const {
    std::optional<bool> flag;
    if (const auto* text = std::get_if<std::string>(&value)) flag = AsBoolean(*text);
    if (const auto* stored = std::get_if<bool>(&value)) flag = *stored;
    return flag ? std::to_string(*flag ? -1 : 0) : ToText(value);
}

void cSHAREDSettings::DeleteFromSetByValue(std::string_view setName, const SettingValue& value) {
    ErrorTrap trap(log_, "DeleteFromSetByValue", kModule);
    trap([&] {
        const auto isMember = MemberOf(setName);
        const std::string form = SavedForm(value);
        std::erase_if(settings_, [&](const cSHAREDSetting& setting) {
            return isMember(setting) && SavedForm(setting.KeyValue) == form;
        });
        Reindex();
    });
}

bool cSHAREDSettings::ValueInSet(std::string_view setName, const SettingValue& value) const {
    bool found = false;
    ErrorTrap trap(log_, "ValueInSet", kModule);
    trap([&] {
        const auto isMember = MemberOf(setName);
        const std::string form = SavedForm(value);
        found = std::any_of(settings_.begin(), settings_.end(), [&](const cSHAREDSetting& setting) {
            return isMember(setting) && SavedForm(setting.KeyValue) == form;
        });
    });
    return found;
}

std::int32_t cSHAREDSettings::SetCount(std::string_view setName) const {
    std::int32_t count = 0;
    ErrorTrap trap(log_, "SetCount", kModule);
    trap([&] {
        count =
            static_cast<std::int32_t>(std::count_if(settings_.begin(), settings_.end(), MemberOf(setName)));
        if (count == LastIndexInSet(setName)) return;
        log_.LogEvent("WARNING: LastIDX and Setcount not the same with setting '" + UpperAscii(setName) +
                      "'");
    });
    return count;
}

void cSHAREDSettings::DeleteASet(std::string_view setName) {
    ErrorTrap trap(log_, "DeleteASet", kModule);
    trap([&] {
        std::erase_if(settings_, MemberOf(setName));
        Reindex();
        DeleteSetting(IndexName(setName));
    });
}

}  // namespace kaz
