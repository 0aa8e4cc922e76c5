#include "fakes/TestData.h"

#include "base/Text.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kaz {

std::string TestData() {
    const char* folder = std::getenv("KAZ_TEST_DATA");
    return folder != nullptr ? folder : KAZ_TEST_DATA;
}

std::string GoldenFile(const std::string& name) {
    std::ifstream file(TestData() + "/golden/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::vector<std::string>> GoldenTable(const std::string& name) {
    std::vector<std::vector<std::string>> rows;
    const std::string file = GoldenFile(name);
    for (const std::string_view line : Split(file, "\n")) {
        if (Trim(line).empty() || line.starts_with('#')) continue;
        auto& row = rows.emplace_back();
        for (const std::string_view column : Split(line, "|")) {
            std::string& cell = row.emplace_back(Trim(column));
            for (std::size_t at = 0; (at = cell.find("\\x", at)) != std::string::npos; ++at)
                cell.replace(at, 4, 1, static_cast<char>(std::stoi(cell.substr(at + 2, 2), nullptr, 16)));
        }
    }
    if (rows.empty()) throw std::runtime_error("no table: " + name);
    return rows;
}

}  // namespace kaz
