#pragma once

#include <string>
#include <vector>

namespace kaz {

// The tests' source folder, for the files that tests compare with: the environment variable KAZ_TEST_DATA,
// which names it as the running system does, else the folder that the tests were built from.
std::string TestData();

// The bytes of a file of tests/golden.
std::string GoldenFile(const std::string& name);

// The rows of a table there: a line's cells between bars, trimmed; "\x20" in one is that byte. Lines that are
// empty or begin with "#" are none.
std::vector<std::vector<std::string>> GoldenTable(const std::string& name);

}  // namespace kaz
