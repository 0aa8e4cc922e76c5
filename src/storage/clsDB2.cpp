#include "storage/clsDB2.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "storage/ErrorBatch.h"
#include "storage/LegacyRecord.h"
#include "storage/Owner.h"
#include "storage/SharedFolder.h"

#include <algorithm>
#include <iterator>

namespace kaz {

namespace {

// Kept on purpose: the count is rounded, so that the larger half of a record at the end of a file is read.
std::size_t RecordsIn(std::string_view records) {
    const double count = static_cast<double>(records.size()) / static_cast<double>(kLegacyRecordSize);
    return static_cast<std::size_t>(RoundToInt32(count));
}

std::string_view RecordAt(std::string_view records, std::size_t index) {
    return records.substr(index * kLegacyRecordSize, kLegacyRecordSize);
}

}  // namespace

clsDB2::clsDB2(const Stores& stores, clsSounds& sounds)
    : stores_(stores),
      sounds_(sounds),
      memory_(stores),
      watched_(stores.platform.files, stores.log) {}

bool clsDB2::DatabaseChanged() const {
    return watched_.Empty() ? FileDate() != lastKnownDate_ : watched_.Changed();
}

void clsDB2::LoadDBIfChanged(const std::string& fileName) {
    if (DatabaseChanged()) LoadDB(fileName);
}

bool clsDB2::LoadDB(const std::string& fileName, bool append) {
    fileName_ = fileName;
    lastKnownDate_ = FileDate();
    ErrorBatch errors(stores_.log);
    ErrorTrap trap(errors, "LoadAllEvents", kModule);
    std::vector<clsEvent> loaded;
    const bool read = trap([&] {
        const std::string records = ReadFileOrEmpty(stores_.platform.files, fileName);
        const std::size_t count = RecordsIn(records);
        loaded.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            ReadLegacyRecord(RecordAt(records, i), loaded[i], trap);
            AddOwnerAndSound(loaded[i]);
        }
    });
    if (!read) return false;
    memory_.ChangeEvents([&](std::vector<clsEvent>& events) {
        if (!append) events.clear();
        events.insert(events.end(), std::make_move_iterator(loaded.begin()),
                      std::make_move_iterator(loaded.end()));
    });
    return true;
}

void clsDB2::LoadMultiple(const std::string& listFile) {
    const SharedFolder folder(stores_.platform.files, stores_.settings, stores_.log);
    const std::string user = stores_.settings.TextOr("Owner", "");
    const auto fileOf = [&](const std::string& name) { return WithExtension(folder.FileOf(name), ".Dat"); };
    memory_.ChangeEvents([](std::vector<clsEvent>& events) { events.clear(); });
    watched_.Clear();
    watched_.Add(listFile);
    for (const std::string& name : folder.UsersOf(listFile)) {
        if (StringsEqual(name, user, stores_.platform.locale.Folding())) continue;
        stores_.log.LogEvent("Setting Databasename to " + fileOf(name));
        watched_.Add(fileOf(name));
        if (!LoadDB(fileOf(name), true)) watched_.LastWasNotRead();
    }
    fileName_ = fileOf(user);
    lastKnownDate_ = FileDate();
}

bool clsDB2::SaveDB() {
    ErrorTrap trap(stores_.log, "SaveDB", kModule);
    std::string records;
    for (const clsEvent& event : memory_.AllEvents())
        if (!event.Deleted) records += LegacyRecordOf(event, trap);
    return Write(records);
}

void clsDB2::DeleteRecord(std::string_view code) {
    memory_.MarkDeleted({std::string(code)});
    SaveDB();
}

void clsDB2::WipeDiskFile() {
    ErrorTrap trap(stores_.log, "WipeDiskFile", kModule);
    trap([&] {
        if (FileExists(stores_.platform.files, fileName_)) stores_.platform.files.Delete(fileName_);
    });
}

void clsDB2::WipeRecordsByOwner(std::string_view owner) {
    LoadDB(fileName_);
    memory_.MarkRecordsByOwner(owner);
    SaveDB();
}

void clsDB2::SetAllToSingleUser() {
    memory_.ChangeEach([](clsEvent& event) { event.Owner(std::string(kSingleUser)); });
    SaveDB();
}

void clsDB2::WipeAllButThisOwner(std::string_view owner) {
    if (owner.empty()) return;
    memory_.ChangeEach([&](clsEvent& event) { event.Deleted |= !IsOwner(event, owner); });
    SaveDB();
}

void clsDB2::RenameOwner(std::string_view oldName, std::string_view newName) {
    memory_.ChangeEach([&](clsEvent& event) {
        if (IsOwner(event, oldName)) event.Owner(std::string(newName));
    });
    SaveDB();
}

std::int32_t clsDB2::SeekDiskRecord(std::string_view code) {
    ErrorTrap trap(stores_.log, "SeekDiskRecord", kModule);
    std::int32_t found = -1;
    trap([&] {
        const std::string records = ReadFileOrEmpty(stores_.platform.files, fileName_);
        for (std::size_t i = 0; i < RecordsIn(records) && found < 0; ++i) {
            clsEvent event;
            ReadLegacyRecord(RecordAt(records, i), event, trap);
            if (event.IDCode == code) found = static_cast<std::int32_t>(i) + 1;
        }
    });
    return found;
}

bool clsDB2::WriteEventToFile(const clsEvent& event) {
    ErrorTrap trap(stores_.log, "WriteEventToFile", kModule);
    std::string records;
    if (!trap([&] { records = ReadFileOrEmpty(stores_.platform.files, fileName_); })) return false;
    const std::int32_t number = SeekDiskRecord(event.IDCode);
    const std::size_t count = RecordsIn(records);
    const std::size_t index = number < 1 ? count : static_cast<std::size_t>(number) - 1;
    records.resize(std::max(count, index + 1) * kLegacyRecordSize);
    records.replace(index * kLegacyRecordSize, kLegacyRecordSize, LegacyRecordOf(event, trap));
    return Write(records);
}

bool clsDB2::IsOwner(const clsEvent& event, std::string_view owner) const {
    return StringsEqual(event.Owner(), owner, stores_.platform.locale.Folding());
}

void clsDB2::AddOwnerAndSound(clsEvent& event) {
    AdoptOrphan(event, CurrentOwner(stores_.settings));
    if (const auto sound = sounds_.OwnWavName(event.IDCode)) {
        event.WavFile = *sound;
        event.PlayWav = true;
    }
}

bool clsDB2::Write(const std::string& records) {
    ErrorTrap trap(stores_.log, "SaveDB", kModule);
    const bool written = trap([&] { WriteWholeFile(stores_.platform.files, fileName_, records); });
    lastKnownDate_ = FileDate();
    return written;
}

}  // namespace kaz
