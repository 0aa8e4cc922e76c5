#include "com/OwnModule.h"

// The linker's name for the start of this module.
extern "C" IMAGE_DOS_HEADER __ImageBase;

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
