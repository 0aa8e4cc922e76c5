#pragma once

#include <windows.h>
#include <oleauto.h>
#include <unknwn.h>

#include <memory>
#include <string_view>

namespace kaz {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
// One reference to a COM object.
template <class T>
using Owned = std::unique_ptr<T, ReleaseObject>;

struct FreeText {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using OwnedText = std::unique_ptr<OLECHAR, FreeText>;
inline OwnedText MakeText(std::wstring_view text) {
    return OwnedText(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
}
inline std::wstring_view View(BSTR text) { return {text ? text : L"", SysStringLen(text)}; }

struct CloseHandleOfSystem {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, CloseHandleOfSystem>;
// What CreateFile gives: its failure is not a null pointer.
inline OwnedHandle FileHandle(HANDLE handle) {
    return OwnedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace kaz
