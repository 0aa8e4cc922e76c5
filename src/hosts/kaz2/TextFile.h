#pragma once

#include <optional>
#include <string>

namespace kaz {

// The first 16 megabytes of the file, also while another program writes it; "" when there is none, nothing
// when it is there and cannot be read.
std::optional<std::string> BytesOfFile(const std::wstring& fileName);

// Adds the bytes at the end, in one step, and makes the file if need be; false when that is not possible.
bool AppendToFile(const std::wstring& fileName, const std::string& bytes);

}  // namespace kaz
