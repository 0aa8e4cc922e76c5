#include "win32/ResourceBytes.h"

namespace kaz {

std::span<const BYTE> ResourceBytes(HINSTANCE module, const wchar_t* name, const wchar_t* kind) {
    const HRSRC found = FindResourceW(module, name, kind);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* data = loaded ? LockResource(loaded) : nullptr;
    if (!data) return {};
    return {static_cast<const BYTE*>(data), SizeofResource(module, found)};
}

}  // namespace kaz
