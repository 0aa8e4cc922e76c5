#pragma once

#include <map>
#include <string>

namespace kaz {

// What a ZIP archive holds, by name. A damaged archive is a failure of the test that asks.
std::map<std::string, std::string> Unpacked(const std::string& archive);

// When the entry was last changed, as "YYYY-MM-DD HH:MM" in the machine's time zone.
std::string TimeInArchive(const std::string& archive, const std::string& name);

}  // namespace kaz
