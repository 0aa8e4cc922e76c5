#pragma once

#include "base/CaseFolding.h"
#include "commands/CategoryStep.h"

#include <optional>
#include <string>

namespace kaz {

// What a user may not have meant when the categories were named.
struct CategoryDoubt {
    std::string question;
    std::size_t slot = 0;  // the first one that it is about
};

// Asks about names that are empty or there twice, letter case and blanks at the ends aside, as far as one of
// them has just been typed; nothing when all is plain.
std::optional<CategoryDoubt> DoubtOf(const CategoryStep::CategoryNames& before,
                                     const CategoryStep::CategoryNames& names, const CaseFolding& folding);

// Puts a handful of usual names, as far as there is room, into the first slots that the user has not named.
// One that is there already is left out.
void SuggestNames(CategoryStep::CategoryNames& names, const CaseFolding& folding);

}  // namespace kaz
