#include "com/Registration.h"

#include "Kazlib_h.h"
#include "com/OwnModule.h"
#include "com/TypeLibrary.h"

#include <olectl.h>

#include <string>
#include <vector>

// In the import library, but not in every version of the headers.
extern "C" HRESULT WINAPI RegisterTypeLibForUser(ITypeLib*, OLECHAR*, OLECHAR*);
extern "C" HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID, WORD, WORD, LCID, SYSKIND);

namespace kaz {

namespace {

constexpr wchar_t kProgId[] = L"Kazlib.clsComponent";
constexpr wchar_t kVersionedProgId[] = L"Kazlib.clsComponent.1";
constexpr wchar_t kDescription[] = L"KAZ reminders and calendar";
constexpr WORD kMajorVersion = 1;
constexpr WORD kMinorVersion = 0;
#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
#endif

struct Entry {
    std::wstring key;  // below Software\Classes
    const wchar_t* name;
    std::wstring value;
};

std::wstring Text(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

std::wstring ClassKey() { return L"CLSID\\" + Text(CLSID_clsComponent); }

std::vector<Entry> Entries() {
    const std::wstring id = Text(CLSID_clsComponent);
    const std::wstring progId = kProgId;
    const std::wstring versioned = kVersionedProgId;
    return {
        {ClassKey(), nullptr, kDescription},
        {ClassKey() + L"\\InprocServer32", nullptr, ModulePath()},
        {ClassKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {ClassKey() + L"\\ProgID", nullptr, versioned},
        {ClassKey() + L"\\VersionIndependentProgID", nullptr, progId},
        {ClassKey() + L"\\TypeLib", nullptr, Text(LIBID_Kazlib)},
        {ClassKey() + L"\\Version", nullptr, L"1.0"},
        {ClassKey() + L"\\Programmable", nullptr, L""},
        {progId, nullptr, kDescription},
        {progId + L"\\CLSID", nullptr, id},
        {progId + L"\\CurVer", nullptr, versioned},
        {versioned, nullptr, kDescription},
        {versioned + L"\\CLSID", nullptr, id},
    };
}

LSTATUS WriteEntries(HKEY root) {
    for (const Entry& entry : Entries()) {
        const std::wstring key = L"Software\\Classes\\" + entry.key;
        const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
        const LSTATUS status =
            RegSetKeyValueW(root, key.c_str(), entry.name, REG_SZ, entry.value.c_str(), bytes);
        if (status != ERROR_SUCCESS) return status;
    }
    return ERROR_SUCCESS;
}

LSTATUS DeleteEntries(HKEY root) {
    LSTATUS worst = ERROR_SUCCESS;
    for (const std::wstring& key : {ClassKey(), std::wstring(kProgId), std::wstring(kVersionedProgId)}) {
        const LSTATUS status = RegDeleteTreeW(root, (L"Software\\Classes\\" + key).c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) worst = status;
    }
    return worst;
}

}  // namespace

HRESULT RegisterComponent(Users users) {
    ComPointer<ITypeLib> library;
    HRESULT result = LoadOwnTypeLibrary(library);
    if (FAILED(result)) return SELFREG_E_TYPELIB;
    std::wstring path = ModulePath();

    const LSTATUS status = users == Users::This ? ERROR_ACCESS_DENIED : WriteEntries(HKEY_LOCAL_MACHINE);
    if (status == ERROR_SUCCESS) {
        result = RegisterTypeLib(library.Get(), path.data(), nullptr);
        return FAILED(result) ? SELFREG_E_TYPELIB : S_OK;
    }
    if (status != ERROR_ACCESS_DENIED || WriteEntries(HKEY_CURRENT_USER) != ERROR_SUCCESS)
        return SELFREG_E_CLASS;
    result = RegisterTypeLibForUser(library.Get(), path.data(), nullptr);
    return FAILED(result) ? SELFREG_E_TYPELIB : S_OK;
}

HRESULT UnregisterComponent(Users users) {
    // What is not there, or there for the other kind of users only, is told as a failure by these two; the
    // keys below are what makes the component known.
    UnRegisterTypeLibForUser(LIBID_Kazlib, kMajorVersion, kMinorVersion, LOCALE_NEUTRAL, kSystem);
    LSTATUS status = DeleteEntries(HKEY_CURRENT_USER);
    if (users == Users::AllOrThis) {
        UnRegisterTypeLib(LIBID_Kazlib, kMajorVersion, kMinorVersion, LOCALE_NEUTRAL, kSystem);
        const LSTATUS machine = DeleteEntries(HKEY_LOCAL_MACHINE);
        if (status == ERROR_SUCCESS) status = machine;
    }
    return status == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
}

}  // namespace kaz
