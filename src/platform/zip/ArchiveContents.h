#pragma once

#include <string>

namespace kaz {

// The file of that name in a ZIP archive that is in memory. Throws InternalError when the archive is damaged,
// FileNotFound when it holds no such file.
std::string FileInArchive(const std::string& archive, const std::string& name);

}  // namespace kaz
