#include "fakes/TestData.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace kaz {

std::string TestData() {
    const char* folder = std::getenv("KAZ_TEST_DATA");
    return folder != nullptr ? folder : KAZ_TEST_DATA;
}

std::string GoldenFile(const std::string& name) {
    std::ifstream file(TestData() + "/golden/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace kaz
