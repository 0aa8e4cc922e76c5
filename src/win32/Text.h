#pragma once

#include <string>
#include <string_view>

namespace kaz {

// The system's texts are UTF-16, ours UTF-8. What is broken, a half letter in either, becomes the replacement
// character.
std::wstring ToWide(std::string_view text);
std::string ToUtf8(std::wstring_view text);

// A path of the system's own as text: where the code page of the files cannot hold it, the file system's
// short name for it, if it has one. A file in which the path stands then means the same folder to every
// program.
std::string PathText(const std::wstring& path);

}  // namespace kaz
