#include "com/OwnModule.h"

extern "C" IMAGE_DOS_HEADER
    __ImageBase;  // NOLINT(bugprone-reserved-identifier): the linker's name for our start

namespace kaz {

HINSTANCE OwnModule() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

}  // namespace kaz
