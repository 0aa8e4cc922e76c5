#pragma once

#include <optional>
#include <string>

namespace kaz {

// The first 16 megabytes of the file, also while another program writes it; "" when there is none, nothing
// when it is there and cannot be read.
std::optional<std::string> BytesOfFile(const std::wstring& fileName);

// Such bytes as UTF-8: what is not UTF-8 already is taken for the system's code
// page, in which an old editor writes.
std::string Utf8OfFile(std::string bytes);

// Adds the bytes at the end, in one step, and makes the file if need be; false when that is not possible.
bool AppendToFile(const std::wstring& fileName, const std::string& bytes);

// The file is these bytes or what it was: who waits for it never reads a part of it.
bool ReplaceFileBy(const std::wstring& fileName, const std::string& bytes);

}  // namespace kaz
