#include "com/TypeLibrary.h"

#include "com/OwnModule.h"

namespace kaz {

HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library) {
    return LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Put());
}

HRESULT LoadOwnTypeInfo(REFGUID id, ComPointer<ITypeInfo>& info) {
    ComPointer<ITypeLib> library;
    const HRESULT result = LoadOwnTypeLibrary(library);
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(id, info.Put());
}

}  // namespace kaz
