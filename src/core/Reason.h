#pragma once

#include "base/ErrorTrap.h"
#include "platform/FileSystem.h"

#include <string>

namespace kaz {

// Why a file cannot be read or written, as the end of a sentence in a person's words, such as "the disk D: is
// full". It looks at what stands in the way now.
std::string Reason(const FileSystem& files, const std::string& file, const ErrorInfo& error);

}  // namespace kaz
