#include "reminders/TrustedFiles.h"

#include "base/Text.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr const char* kSet = "TrustedFiles";

bool IsPlain(const std::string& text) { return std::none_of(text.begin(), text.end(), IsControl); }

}  // namespace

bool TrustedFiles::Holds(const std::string& owner, const std::string& file) const {
    return settings_.ValueInSet(kSet, owner + "|" + file);
}

void TrustedFiles::Add(const std::string& owner, const std::string& file) {
    if (CanHold(owner, file) && !Holds(owner, file)) settings_.AddToSet(kSet, owner + "|" + file);
}

bool TrustedFiles::CanHold(const std::string& owner, const std::string& file) {
    return IsPlain(owner) && IsPlain(file);
}

}  // namespace kaz
