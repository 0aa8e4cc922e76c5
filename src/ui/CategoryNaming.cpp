#include "ui/CategoryNaming.h"

#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace kaz {

namespace {

using Names = CategoryStep::CategoryNames;

bool IsEmpty(const std::string& name) { return Trim(name).empty(); }

bool AreAlike(const std::string& one, const std::string& other, const CaseFolding& folding) {
    return StringsEqual(Trim(one), Trim(other), folding);
}

bool IsUnnamed(const Names& names, std::size_t slot) {
    return IsEmpty(names[slot]) || clsLayers::IsFree(static_cast<std::int16_t>(slot), names[slot]);
}

}  // namespace

std::optional<CategoryDoubt> DoubtOf(const Names& before, const Names& names, const CaseFolding& folding) {
    CategoryDoubt doubt;
    const auto add = [&](std::size_t slot, const std::string& sentence) {
        if (doubt.question.empty()) doubt.slot = slot;
        doubt.question += sentence + "\r\n";
    };
    for (std::size_t slot = clsLayers::kFirstOwn; slot < clsLayers::kAll; ++slot) {
        if (names[slot] == before[slot]) continue;
        if (IsEmpty(names[slot])) {
            add(slot, "Category " + std::to_string(slot) + " has no name. Its events will show none.");
            continue;
        }
        for (std::size_t other = 0; other < names.size(); ++other) {
            // Two that are both new are told of once.
            if (other == slot || (other > slot && names[other] != before[other])) continue;
            if (AreAlike(names[other], names[slot], folding))
                add(slot, "There are two categories \"" + std::string(Trim(names[slot])) +
                              "\". What is found by its name is put into the first one.");
        }
    }
    if (doubt.question.empty()) return std::nullopt;
    doubt.question += "Do you want to keep it so?";
    return doubt;
}

void SuggestNames(Names& names, const CaseFolding& folding) {
    std::size_t slot = clsLayers::kFirstOwn;
    for (const std::string name : {"Home", "Work", "Birthdays", "Bills"}) {
        const auto isName = [&](const std::string& there) { return AreAlike(there, name, folding); };
        if (std::any_of(names.begin(), names.end(), isName)) continue;
        while (slot < clsLayers::kAll && !IsUnnamed(names, slot))
            ++slot;
        if (slot < clsLayers::kAll) names[slot] = name;
    }
}

}  // namespace kaz
