#include "platform/WaveFile.h"

#include "base/RuntimeError.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace kaz {

namespace {

// What players put before the sound itself is far smaller.
constexpr std::size_t kStart = 65536;
constexpr std::size_t kHead = 8;          // of each chunk: its name and its size
constexpr std::size_t kLeastFormat = 16;  // of plain samples

std::string StartOf(FileSystem& files, const std::string& path) {
    const auto file = files.OpenForReading(path);
    std::string start(kStart, '\0');
    std::size_t size = 0;
    while (size < kStart) {
        const std::size_t got = file->Read(start.data() + size, kStart - size);
        if (got == 0) break;
        size += got;
    }
    start.resize(size);
    return start;
}

std::uint64_t SizeAt(std::string_view bytes, std::size_t at) {
    std::uint64_t size = 0;
    for (std::size_t place = 4; place-- > 0;)
        size = size << 8 | static_cast<unsigned char>(bytes[at + place]);
    return size;
}

std::optional<std::string_view> FormatIn(std::string_view start) {
    constexpr std::size_t kChunks = 12;
    if (start.size() < kChunks || !start.starts_with("RIFF") || start.substr(8, 4) != "WAVE") return {};
    std::optional<std::string_view> format;
    std::uint64_t next = kChunks;
    while (next + kHead <= start.size()) {
        const auto at = static_cast<std::size_t>(next);
        const std::string_view name = start.substr(at, 4);
        const std::uint64_t size = SizeAt(start, at + 4);
        if (name == "data") return size > 0 ? format : std::nullopt;
        if (name == "fmt ") {
            if (size < kLeastFormat || size > start.size() - at - kHead) return {};
            format = start.substr(at + kHead, static_cast<std::size_t>(size));
        }
        next += kHead + size + size % 2;
    }
    // The samples may come after something long.
    return start.size() == kStart ? format : std::nullopt;
}

}  // namespace

std::string WaveFormatOf(FileSystem& files, const std::string& path) {
    const std::string start = StartOf(files, path);
    const auto format = FormatIn(start);
    if (!format) throw RuntimeError(ErrorNumber::DeviceError, path + " is not a wave sound, or is damaged");
    return std::string(*format);
}

}  // namespace kaz
