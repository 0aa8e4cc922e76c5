#include "base/RuntimeError.h"
#include "base/Text.h"
#include "model/clsEvent.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "storage/ErrorBatch.h"
#include "storage/EventFileReader.h"
#include "storage/Owner.h"
#include "storage/Stores.h"
#include "storage/clsDbXml.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <unordered_set>
#include <utility>

namespace kaz {

namespace {

// What becomes of each event that is read from a file.
class EventIntake {
public:
    // `foreign`: the file was written by another user. Of it come in only the events that are meant for this
    // user, with the category of this user's that has the same name.
    EventIntake(const Stores& stores, bool foreign);

    // False for an event that does not come in.
    bool Admit(clsEvent& event) const;

private:
    bool AdmitForeign(clsEvent& event) const;

    Stores stores_;
    bool foreign_;
    std::string user_;
};

EventIntake::EventIntake(const Stores& stores, bool foreign)
    : stores_(stores),
      foreign_(foreign),
      user_(CurrentOwner(stores.settings)) {}

bool EventIntake::Admit(clsEvent& event) const {
    AdoptOrphan(event, user_);
    return !event.Deleted && (!foreign_ || AdmitForeign(event));
}

// A shared event without a list of names is meant for everybody.
bool EventIntake::AdmitForeign(clsEvent& event) const {
    const CaseFolding& letters = stores_.platform.locale.Folding();
    if (event.SharedEvent && event.ShareWithSpecific && !event.NameInShared(user_, letters)) return false;
    const std::string& category = event.SharedLayerName;
    // Slot 0 is everybody's, and has its name from the program.
    if (category.empty() || category == stores_.layers.Layer(clsLayers::kShared)) return true;
    // The name was written by somebody else and would become a line of the settings file.
    if (std::any_of(category.begin(), category.end(), IsControl)) return true;
    const std::int16_t slot = stores_.layers.SeekLayerIndex(category);
    if (slot >= 0) event.Layer(slot);
    return true;
}

// A file that is there and can be read, but is none of ours any more.
struct DamagedFile : RuntimeError {
    explicit DamagedFile(std::string what) : RuntimeError(ErrorNumber::TypeMismatch, std::move(what)) {}
};

}  // namespace

void clsDbXml::Append() {
    lastKnownDate_ = FileDate();
    try {
        std::vector<clsEvent> file;
        if (lastKnownDate_ || stores_.platform.files.Kind(fileName_) != PathKind::Missing)
            ReadFile(fileName_, file);
        ChangeEvents([&](std::vector<clsEvent>& events) {
            std::move(file.begin(), file.end(), std::back_inserter(events));
        });
        known_.confirmed = known_.saved = KnownEvents(AllEvents());
        eventsPrint_.reset();
        state_ = FileState::Fine;
        TellLoad(true);
    } catch (...) {
        CouldNotRead(FileState::NotRead, CurrentError());
    }
}

// Brings the memory up to what the file holds now. With `fresh`, nothing of the memory stays.
void clsDbXml::Reload(bool fresh) {
    isKnown_ = true;
    lastKnownDate_ = FileDate();
    try {
        if (!lastKnownDate_) {
            // A folder that is gone, such as a share without its network, is no empty database.
            const std::string folder = FolderOf(fileName_);
            if (!folder.empty() && stores_.platform.files.Kind(folder) == PathKind::Missing)
                throw RuntimeError(ErrorNumber::PathNotFound);
            if (stores_.platform.files.Kind(fileName_) == PathKind::Missing) {
                LookForMissing(fresh);
                return;
            }
        }
        std::vector<clsEvent> file;
        ReadFile(fileName_, file);
        GiveRepeatedNewCodes(file);
        TellCut(file);
        TakeIn(std::move(file), fresh);
        isThere_ = true;
        state_ = FileState::Fine;
        readFault_.reset();
        toldFault_.clear();
    } catch (const DamagedFile& damage) {
        CouldNotRead(FileState::Damaged, {static_cast<int>(damage.Number()), damage.Description()});
    } catch (...) {
        const ErrorInfo error = CurrentError();
        const bool away = error.number == static_cast<int>(ErrorNumber::PathNotFound);
        CouldNotRead(away ? FileState::FolderAway : FileState::NotRead, error);
    }
}

// The folder is there, but no file in it.
void clsDbXml::LookForMissing(bool fresh) {
    eventsPrint_.reset();
    if (!isThere_ && (state_ == FileState::FolderAway || state_ == FileState::NotBack)) {
        // A synchronised folder is there before its files.
        state_ = FileState::NotBack;
        readFault_ = {static_cast<int>(ErrorNumber::FileNotFound), DescriptionOf(ErrorNumber::FileNotFound)};
        return;
    }
    readFault_.reset();
    if (!isThere_) {
        TakeIn({}, fresh);
        state_ = FileState::Fine;
    } else if (FileExists(stores_.platform.files, WithExtension(fileName_, ".dat"))) {
        state_ = FileState::SetAside;
    } else {
        // The memory is the last good copy.
        known_ = {};
        unconfirmed_ = false;
        state_ = FileState::Vanished;
    }
}

void clsDbXml::TakeIn(std::vector<clsEvent> file, bool fresh) {
    KnownEvents known(file);
    eventsPrint_ = known.Print(file);
    isOurText_ = false;
    EventMerge::Result merged;
    if (fresh) {
        merged.events = std::move(file);
    } else {
        merged = EventMerge::Run(std::move(file), AllEvents(), known_);
        KeepWhatGivesWay(merged);
    }
    const std::vector<clsEvent> before = Exchange(std::move(merged.events));
    known_.confirmed = known_.saved = std::move(known);
    known_.former.clear();
    unconfirmed_ = false;
    for (clsEvent& event : merged.newCodes)
        StoreRecord(std::move(event), true);
    if (!merged.gone.empty()) TellGone(std::move(merged.gone), before);
    TellLoad(!fresh);
    if (!fresh && onReload_) onReload_(before, AllEvents());
}

void clsDbXml::KeepWhatGivesWay(const EventMerge::Result& merged) const {
    if (!merged.yielded.empty())
        overwritten_.KeepEvents(fileName_, "changed here and by another", merged.yielded);
    if (merged.hidesTheirs && !overwritten_.Keep(fileName_))
        throw RuntimeError(ErrorNumber::PathFileAccess, "The version of another program cannot be kept");
}

void clsDbXml::TellGone(std::vector<clsEvent> gone, const std::vector<clsEvent>& before) {
    if (other_) {
        if (other_->DatabaseChanged()) other_->Reload(false);
        std::unordered_set<std::string_view> codes;
        std::unordered_set<std::uint64_t> words;
        for (const clsEvent& event : other_->AllEvents()) {
            if (event.Deleted) continue;
            codes.insert(event.IDCode);
            words.insert(EventDigest(event).words);
        }
        std::erase_if(gone, [&](const clsEvent& event) {
            return codes.contains(event.IDCode) || words.contains(EventDigest(event).words);
        });
    }
    if (gone.empty()) return;
    stores_.log.LogEvent(std::to_string(gone.size()) + " events are gone from " + fileName_ +
                         ", removed by another program");
    overwritten_.KeepEvents(fileName_, "before events went", before);
    if (onGone_) onGone_(gone);
}

// Told once for each reason, since every tick tries again.
void clsDbXml::CouldNotRead(FileState state, const ErrorInfo& error) {
    std::string reason = std::to_string(error.number) + fileName_ + error.description;
    if (std::exchange(toldFault_, reason) != reason) {
        stores_.log.Report(error, "LoadDB", kModule);
        stores_.log.LogEvent("Unable to read events from " + fileName_);
    }
    state_ = state;
    readFault_ = error;
    // Without a date the file counts as changed, so that the next look at it tries again.
    lastKnownDate_.reset();
}

// Adds the file's events, or when one cannot be read, none.
void clsDbXml::ReadFile(const std::string& path, std::vector<clsEvent>& events) {
    const auto file = stores_.platform.files.OpenForReading(path);
    ErrorBatch errors(stores_.log);
    EventFileReader reader(*file, stores_.platform.locale.Data(), errors);
    const EventIntake intake(stores_, foreignFileFilter_);
    for (;;) {
        if (events.size() == events.capacity())
            events.reserve(std::max(events.size() + events.size() / 8 + 64, reader.EstimatedCount()));
        const bool read = reader.Next(events.emplace_back());
        if (!read || !intake.Admit(events.back())) events.pop_back();
        if (!read) break;
    }
    CheckRead(reader);
    contentPrint_ = reader.ContentPrint();
}

void clsDbXml::CheckRead(const EventFileReader& reader) const {
    if (const std::string fault = reader.Fault(); !fault.empty()) throw DamagedFile("The file " + fault);
    if (!reader.IsEmpty()) return;
    const bool hadEvents = isThere_ && !known_.confirmed.Entries().empty();
    if (hadEvents || (backupHasEvents_ && backupHasEvents_())) throw DamagedFile("The file is empty");
}

void clsDbXml::TellCut(const std::vector<clsEvent>& events) {
    const auto cut = std::count_if(events.begin(), events.end(), std::mem_fn(&clsEvent::IsDescCut));
    if (std::exchange(toldCut_, cut) == cut || cut == 0) return;
    stores_.log.LogEvent("Descriptions in " + fileName_ + " with more than " +
                         std::to_string(clsEvent::kLongestShown) + " characters: " + std::to_string(cut) +
                         ". They are kept, and windows show their beginning");
}

// A file of one user holds no code twice. The same place gets the same code at each reading, until it stands
// in the file.
void clsDbXml::GiveRepeatedNewCodes(std::vector<clsEvent>& events) {
    std::map<std::pair<std::string, int>, std::string> given;
    std::map<std::string, int> times;
    EventCodes codes(stores_.platform.clock, stores_.platform.random);
    for (const std::size_t place : EventCodes::Repeated(events)) {
        clsEvent& event = events[place];
        const std::pair key(event.IDCode, ++times[event.IDCode]);
        const auto before = newCodes_.find(key);
        const bool known = before != newCodes_.end() && !codes.MayHold(events, before->second);
        event.IDCode = known ? before->second : codes.Unused(events, TakenElsewhere());
        if (!known)
            stores_.log.LogEvent("The code " + key.first + " is in " + fileName_ +
                                 " more than once. One of the events gets the code " + event.IDCode);
        given[key] = event.IDCode;
        codes.Forget();
    }
    newCodes_ = std::move(given);
}

}  // namespace kaz
