#include "base/CaseFolding.h"

#include <utf8proc.h>

namespace kaz {

namespace {

char32_t Folded(char32_t letter) noexcept {
    constexpr char32_t kFinalSigma = 0x3C2;
    constexpr char32_t kSigma = 0x3C3;
    if (letter == kFinalSigma) return kSigma;
    return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(letter)));
}

}  // namespace

// In a file of its own: a program that compares nothing but ASCII does without the tables of all letters.
const CaseFolding& CaseFolding::Letters() noexcept {
    static constexpr CaseFolding kLetters{Folded};
    return kLetters;
}

}  // namespace kaz
