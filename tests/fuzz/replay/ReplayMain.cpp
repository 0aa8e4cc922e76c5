// Stands in for libFuzzer in the regular tests: every corpus file, then a fixed number of mutations of each.
// The seed is fixed, so that a failure repeats; finding new inputs is the work of the "fuzz" preset.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kMutationsPerFile = 200;

Bytes Read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::size_t Below(std::mt19937& random, std::size_t limit) { return limit == 0 ? 0 : random() % limit; }

void Mutate(Bytes& bytes, std::mt19937& random) {
    const auto at = [&] { return bytes.begin() + static_cast<std::ptrdiff_t>(Below(random, bytes.size())); };
    for (std::size_t step = 1 + Below(random, 4); step > 0; --step) {
        const auto byte = static_cast<std::uint8_t>(random());
        if (bytes.empty()) {
            bytes.push_back(byte);
            continue;
        }
        switch (Below(random, 5)) {
        case 0: *at() = byte; break;
        case 1: bytes.insert(at(), byte); break;
        case 2: bytes.erase(at()); break;
        case 3: bytes.resize(Below(random, bytes.size())); break;
        default: {
            const Bytes copy(at(), bytes.end());
            bytes.insert(at(), copy.begin(), copy.end());
        }
        }
    }
}

}  // namespace

int main(int count, char** arguments) try {
    std::vector<Bytes> inputs{{}};
    for (int i = 1; i < count; ++i) {
        if (std::filesystem::is_directory(arguments[i])) {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[i])) {
                if (entry.is_regular_file()) {
                    inputs.push_back(Read(entry.path()));
                }
            }
        } else if (std::filesystem::exists(arguments[i])) {
            inputs.push_back(Read(arguments[i]));
        }
    }

    std::mt19937 random(1);
    for (const Bytes& input : inputs) {
        LLVMFuzzerTestOneInput(input.data(), input.size());
        for (int i = 0; i < kMutationsPerFile; ++i) {
            Bytes mutated = input;
            Mutate(mutated, random);
            LLVMFuzzerTestOneInput(mutated.data(), mutated.size());
        }
    }
    std::printf("%zu inputs and %d mutations of each\n", inputs.size(), kMutationsPerFile);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
