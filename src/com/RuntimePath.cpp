#include "com/RuntimePath.h"

#include "platform/win32/Text.h"

namespace kaz {

std::string RuntimePathText(BSTR folder) {
    const std::wstring wide(folder ? folder : L"", SysStringLen(folder));
    std::string text = FromUtf16(wide);
    if (ToUtf16(text) == wide) return text;

    const DWORD size = GetShortPathNameW(wide.c_str(), nullptr, 0);
    std::wstring shorter(size, L'\0');
    const DWORD length = GetShortPathNameW(wide.c_str(), shorter.data(), size);
    if (length == 0 || length >= size) return text;
    shorter.resize(length);
    return FromUtf16(shorter);
}

}  // namespace kaz
