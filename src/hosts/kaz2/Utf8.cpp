#include "hosts/kaz2/Utf8.h"

#include <windows.h>

namespace kaz {

namespace {

std::wstring Wide(std::string_view text, UINT codePage) {
    std::wstring wide(text.size(), L'\0');
    const int length = MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

}  // namespace

std::string Utf8(std::wstring_view text) {
    std::string bytes(3 * text.size(), '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

std::wstring Wide(std::string_view text) { return Wide(text, CP_UTF8); }

std::string Utf8OfFile(std::string bytes) {
    const int size = static_cast<int>(bytes.size());
    if (size == 0 || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0) > 0)
        return bytes;
    return Utf8(Wide(bytes, CP_ACP));
}

}  // namespace kaz
