#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kaz {

// The code page of the program's texts and files: the system's own. A system set to UTF-8 still has files
// from the time before, in the code page of the user's language, so that one is taken there.
unsigned TextCodePage() noexcept;

std::wstring ToWide(std::string_view text);

// Characters that the code page cannot hold become "?".
std::string ToCodePage(std::wstring_view text);
// Nothing when there is a character that the code page cannot hold.
std::optional<std::string> ToCodePageIfExact(std::wstring_view text);
// Throws InvalidCall with a plain message that names the first character that the code page cannot hold.
std::string ToCodePageExactly(std::wstring_view text);

// The system's texts are UTF-16; logs for other programs and mails are UTF-8. A half character becomes the
// replacement character.
std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

// A path of the system's own as text: when the code page cannot hold it, the file system's short name for it.
std::string PathToCodePage(const std::wstring& path);

}  // namespace kaz
