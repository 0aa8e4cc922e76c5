#pragma once

#include "base/ErrorTrap.h"
#include "model/clsEvent.h"

#include <string>
#include <string_view>

namespace kaz {

// One record of the old event files: 498 bytes, each property at its fixed place. It has no room for the
// sound, the category for sharing, the names to share with and the mail mark.
inline constexpr std::size_t kLegacyRecordSize = 498;

// Sets the event's properties from the record; what a short record lacks reads as zero. A field that holds no
// value, such as a date that is no number, goes to the trap and keeps what the event held.
void ReadLegacyRecord(std::string_view record, clsEvent& event, ErrorTrap& trap);

// The record of the event: texts are cut to their field's width and padded with blanks. A number that its
// field cannot hold goes to the trap and is written as 0.
std::string LegacyRecordOf(const clsEvent& event, ErrorTrap& trap);

}  // namespace kaz
