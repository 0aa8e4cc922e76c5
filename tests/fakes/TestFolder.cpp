#include "fakes/TestFolder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

namespace kaz {

TestFolder::TestFolder() {
    path_ = std::filesystem::temp_directory_path() / ("kaz-test-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(path_);
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void TestFolder::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
}

std::string TestFolder::Read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kaz
