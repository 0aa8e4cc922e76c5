#pragma once

#include "win32/ComPointer.h"

#include <windows.h>
#include <oleauto.h>

namespace kaz {

// The type library in this module's resources. It is read from the file and never from the registry, so that
// it is there, and the right one, in a folder where nothing was registered.
HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library);
HRESULT LoadOwnTypeInfo(REFGUID id, ComPointer<ITypeInfo>& info);

}  // namespace kaz
