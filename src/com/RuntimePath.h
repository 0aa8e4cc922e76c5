#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

namespace kaz {

// A folder handed over by the host, in the system's code page. A name that the code page cannot hold (a user
// whose own name is in another script) becomes the short name of the same folder, when it has one.
std::string RuntimePathText(BSTR folder);

}  // namespace kaz
