#include "reminders/ExpiredShelf.h"

#include "base/RuntimeError.h"

#include <utility>

namespace kaz {

void ExpiredShelf::Add(const clsEvent& event) {
    if (!expired_) throw RuntimeError(ErrorNumber::InternalError);
    if (!codesRead_) ReadCodes();
    expired_->StoreRecord(event, IsAnother(event));
    codes_.insert(std::as_const(*expired_).AllEvents().back().IDCode);
}

// Looked for only when the code is in use: a long absence retires thousands of events in one pass.
bool ExpiredShelf::IsAnother(const clsEvent& event) const {
    const clsEvent* there = codes_.contains(event.IDCode) ? expired_->ReadEvent(event.IDCode) : nullptr;
    return there && !there->Deleted && (there->Desc() != event.Desc() || there->DueDate() != event.DueDate());
}

void ExpiredShelf::ReadCodes() {
    for (const clsEvent& event : std::as_const(*expired_).AllEvents())
        codes_.insert(event.IDCode);
    codesRead_ = true;
}

}  // namespace kaz
