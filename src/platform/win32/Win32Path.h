#pragma once

#include <string>

namespace kaz {

// The path for the wide calls. One that is too long for them is made absolute and given the prefix that lifts
// the limit. Throws PathFileAccess for a path with a zero character in it.
std::wstring WidePath(const std::string& path);

// Whether the drive or the server of the path answers at all.
bool IsReachable(const std::wstring& path);

}  // namespace kaz
