#include "com/TypeLibrary.h"

// The linker's name for the start of this module; what other calls take as the module's handle.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kaz {

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(reinterpret_cast<HMODULE>(&__ImageBase), path.data(),
                                                static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library) {
    return LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Put());
}

HRESULT LoadOwnTypeInfo(REFGUID id, ComPointer<ITypeInfo>& info) {
    ComPointer<ITypeLib> library;
    const HRESULT result = LoadOwnTypeLibrary(library);
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(id, info.Put());
}

}  // namespace kaz
