#pragma once

#include <string>
#include <string_view>

namespace kaz {

// The system's texts are UTF-16; files, logs and mails are UTF-8. A half character becomes the replacement
// character.
std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view text);

// A text file's bytes as UTF-8: what is not UTF-8 already is taken for the system's code page, in which an
// old editor writes.
std::string Utf8OfFile(std::string bytes);

}  // namespace kaz
