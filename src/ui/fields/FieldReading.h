#pragma once

#include "forms/Controls.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kaz {

// What the user has typed into a field. All of these throw FieldFault for what cannot be taken.

// Any text.
std::string TypedText(const Control& field);

// A text that the code page of the files holds.
std::string FittingText(const Control& field);

// A text that stands in the event file as it is, so that a line break or a tag would break the file. `name`
// says in the message what it is, such as "The e-mail address".
std::string StorableText(const Control& field, std::string_view name);

struct NumberMessages {
    std::string notNumeric;
    std::string outOfRange;
};
// A whole number from `least` to `most`.
std::int16_t TypedNumber(const Control& field, std::int16_t least, std::int16_t most,
                         const NumberMessages& messages);

}  // namespace kaz
