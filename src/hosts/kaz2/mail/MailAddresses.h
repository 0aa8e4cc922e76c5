#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kaz {

// The bare addresses of a list that a person typed: separated by ";" or ",", with blanks, names
// ("Ann <ann@example.org>") and repetitions. Throws MailFailure when there is none, or for what cannot be
// one: nothing that would end a line or a command of a mail server comes through.
std::vector<std::string> AddressesOf(std::string_view list);

bool IsMailAddress(std::string_view text);

}  // namespace kaz
