#pragma once

#include <string>
#include <string_view>

namespace kaz {

// Without blanks, tabs and line breaks at both ends.
std::string_view TrimmedMailText(std::string_view text);

// Line breaks and other control characters as one blank each: what came from outside stays on its line, of a
// mail's head as of the log.
std::string OneLineOf(std::string_view text);

// What stands after "Name: " in a mail's head for `text` (UTF-8): as it is when it is short plain ASCII, else
// as encoded words (RFC 2047), folded so that no line is longer than 78 characters.
std::string HeaderText(std::string_view text);

// A mail's body of that text (UTF-8) as "quoted-printable": ASCII lines of at most 76 characters, each ended
// by CR LF, whatever ended them before.
std::string QuotedPrintable(std::string_view text);

}  // namespace kaz
