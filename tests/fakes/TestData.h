#pragma once

#include <string>

namespace kaz {

// The tests' source folder, for the files that tests compare with: the environment variable KAZ_TEST_DATA,
// which names it as the running system does, else the folder that the tests were built from.
std::string TestData();

// The bytes of a file of tests/golden.
std::string GoldenFile(const std::string& name);

}  // namespace kaz
