#pragma once

#include <windows.h>

#include <span>

namespace kaz {

// A resource of the module as it is stored, there for as long as the module is; empty when there is none.
std::span<const BYTE> ResourceBytes(HINSTANCE module, const wchar_t* name, const wchar_t* kind);

}  // namespace kaz
