#pragma once

#include "com/ComObject.h"
#include "com/TypeLibrary.h"

namespace kaz {

// A COM object whose first interface is dual: calls by name go through the type library to the same slots
// that compiled hosts call directly.
template <class Dual, class... Others>
class DualObject : public ComObject<Dual, Others...> {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        if (!info) return E_POINTER;
        *info = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        const HRESULT result = EnsureTypeInfo();
        if (SUCCEEDED(result)) *info = ComPointer<ITypeInfo>(typeInfo_).Detach();
        return result;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const HRESULT result = EnsureTypeInfo();
        return FAILED(result) ? result : typeInfo_->GetIDsOfNames(names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* answer, EXCEPINFO* exception, UINT* wrongArgument) override {
        const HRESULT result = EnsureTypeInfo();
        if (FAILED(result)) return result;
        // The call may let go of this object's last reference.
        const ComPointer<ITypeInfo> info(typeInfo_);
        return info->Invoke(static_cast<Dual*>(this), id, flags, arguments, answer, exception, wrongArgument);
    }

private:
    HRESULT EnsureTypeInfo() { return typeInfo_ ? S_OK : LoadOwnTypeInfo(__uuidof(Dual), typeInfo_); }

    ComPointer<ITypeInfo> typeInfo_;
};

}  // namespace kaz
