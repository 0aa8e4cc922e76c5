#include "storage/SharedFolder.h"

#include "base/CodePage.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/SafeFileWriter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kaz {

namespace {

// Names that Windows takes for devices, whatever their extension.
bool IsDeviceName(std::string_view name) {
    const std::string stem = UpperAscii(Trim(name.substr(0, name.find('.'))));
    static constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
    if (std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end()) return true;
    const bool numbered = stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9';
    return numbered && (stem.starts_with("COM") || stem.starts_with("LPT"));
}

}  // namespace

SharedFolder::SharedFolder(FileSystem& files, const cSHAREDSettings& settings, cSharedLogging& log)
    : SharedFolder(files, settings.TextOr("SharedDataPath", ""), log) {}

SharedFolder::SharedFolder(FileSystem& files, std::string path, cSharedLogging& log)
    : files_(files),
      path_(std::move(path)),
      log_(log) {}

std::string SharedFolder::ListFile() const { return JoinPath(Path(), "KAZShared.ini"); }

std::string SharedFolder::NameOf(std::string_view user) {
    return std::string("Shared_").append(user).append(".xml");
}

bool SharedFolder::IsSafeName(std::string_view name) {
    return !name.empty() && name.find("..") == std::string_view::npos &&
           std::none_of(name.begin(), name.end(), IsForbiddenInFileName) && !IsDeviceName(name);
}

std::vector<std::string> SharedFolder::UsersOf(const std::string& listFile) const {
    std::vector<std::string> users = ListedNames(listFile);
    std::erase_if(users, [&](const std::string& name) {
        if (IsSafeName(name)) return false;
        log_.LogEvent("Shared user \"" + name + "\" refused: the name does not stay in the shared folder");
        return true;
    });
    return users;
}

void SharedFolder::AddUser(std::string_view user) {
    const std::string name(Trim(user));
    if (!IsSafeName(name)) {
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "\"" + name +
                               "\" cannot be used as an ID: it has to be usable as part of a file name.");
    }
    ChangeNames([&](Names& names) {
        const auto same = [&](const std::string& listed) { return StringsEqual(listed, name); };
        if (std::any_of(names.begin(), names.end(), same)) return false;
        names.push_back(name);
        return true;
    });
}

void SharedFolder::RemoveUsers(const std::vector<std::string>& users) {
    const auto isOneOf = [&](const std::string& listed) {
        return std::any_of(users.begin(), users.end(),
                           [&](const std::string& user) { return StringsEqual(listed, user); });
    };
    ChangeNames([&](Names& names) { return std::erase_if(names, isOneOf) > 0; });
}

std::vector<std::string> SharedFolder::ListedNames(const std::string& listFile) const {
    std::vector<std::string> names;
    if (Path().empty()) return names;
    if (!FolderExists(files_, FolderOf(listFile))) throw RuntimeError(ErrorNumber::PathNotFound);
    const std::string text = CodePage::OfSystem().Decode(ReadFileOrEmpty(files_, listFile));
    for (const std::string_view line : Split(text, kLineBreak))
        if (const std::string_view name = Trim(line); !name.empty()) names.emplace_back(name);
    return names;
}

void SharedFolder::ChangeNames(const std::function<bool(Names&)>& change) {
    constexpr int kMostTimes = 5;
    for (int time = 0; time < kMostTimes; ++time) {
        const Names before = ListedNames(ListFile());
        Names names = before;
        if (!change(names)) return;
        std::string text;
        for (const std::string& name : names)
            text.append(name).append(kLineBreak);
        SafeFileWriter file(files_, ListFile());
        file.Write(CodePage::OfSystem().Encode(text));
        if (ListedNames(ListFile()) == before) file.Commit();
    }
}

}  // namespace kaz
