#include "ComHost.h"
#include "base/Version.h"
#include "fakes/TestFolder.h"

#include <gtest/gtest.h>

namespace kaz::test {

namespace {

template <class Function>
Function* Entry(const char* name) {
    HMODULE module = LoadLibraryW(L"Kazlib.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

std::wstring RegisteredText(HKEY root, const wchar_t* key) {
    wchar_t text[MAX_PATH] = L"";
    DWORD size = sizeof text;
    RegGetValueW(root, key, nullptr, RRF_RT_REG_SZ, nullptr, text, &size);
    return text;
}

// Sends what is written for all users to a key of this test for as long as it lives.
class PrivateRegistry {
public:
    PrivateRegistry() {
        RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\KazTest\\Software\\Classes", &classes_);
        RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\KazTest", &machine_);
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_);
        RegOverridePredefKey(HKEY_CLASSES_ROOT, classes_);
    }
    ~PrivateRegistry() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        RegCloseKey(classes_);
        RegCloseKey(machine_);
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\KazTest");
    }
    HKEY Classes() const { return classes_; }

private:
    HKEY machine_ = nullptr;
    HKEY classes_ = nullptr;
};

}  // namespace

TEST(Activation, ManifestFindsTheComponentByIdAndByName) {
    const auto component = MakeComponent();
    ASSERT_TRUE(component);
    Bstr version;
    EXPECT_EQ(component->get_DLLVersion(version.Put()), S_OK);
    EXPECT_EQ(version.View(),
              std::to_wstring(kMajor) + L"." + std::to_wstring(kMinor) + L"." + std::to_wstring(kRevision));

    for (const wchar_t* name : {L"Kazlib.clsComponent", L"Kazlib.clsComponent.1"}) {
        // The id of a name in a manifest is one that the system makes up for it.
        CLSID id{};
        ComPointer<IKazComponent> named;
        EXPECT_EQ(CLSIDFromProgID(name, &id), S_OK) << name;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, __uuidof(IKazComponent), named.PutVoid()), S_OK)
            << name;
    }
}

TEST(Activation, RegistersItselfAndLeavesNothingBehind) {
    const PrivateRegistry registry;
    const std::wstring server = L"CLSID\\{2007682C-BE4C-42A0-9B64-9FDB7D6A0BAE}\\InprocServer32";
    const std::wstring library =
        std::wstring(L"TypeLib\\{82047000-9C30-4AA6-81A9-145876A6A3DD}\\1.0\\0\\win") +
        (sizeof(void*) == 8 ? L"64" : L"32");

    ASSERT_EQ(Entry<HRESULT WINAPI()>("DllRegisterServer")(), S_OK);
    const std::wstring path = RegisteredText(registry.Classes(), server.c_str());
    EXPECT_TRUE(path.ends_with(L"\\Kazlib.dll")) << std::string(path.begin(), path.end());
    EXPECT_EQ(RegisteredText(registry.Classes(), library.c_str()), path);
    EXPECT_EQ(RegisteredText(registry.Classes(), L"Kazlib.clsComponent\\CurVer"), L"Kazlib.clsComponent.1");
    EXPECT_EQ(RegisteredText(registry.Classes(), L"Kazlib.clsComponent\\CLSID"), server.substr(6, 38));

    const auto unregister = Entry<HRESULT WINAPI()>("DllUnregisterServer");
    EXPECT_EQ(unregister(), S_OK);
    EXPECT_EQ(RegisteredText(registry.Classes(), server.c_str()), L"");
    EXPECT_EQ(RegisteredText(registry.Classes(), library.c_str()), L"");
    EXPECT_EQ(RegisteredText(registry.Classes(), L"Kazlib.clsComponent\\CLSID"), L"");
    EXPECT_EQ(unregister(), S_OK) << "what is not there is no failure";

    // For one user, although the rights for all are there.
    const std::wstring own = L"Software\\Classes\\" + server;
    const auto install = Entry<HRESULT WINAPI(BOOL, PCWSTR)>("DllInstall");
    EXPECT_EQ(install(TRUE, L"machine"), E_INVALIDARG);
    EXPECT_EQ(install(TRUE, L"user"), S_OK);
    EXPECT_EQ(RegisteredText(registry.Classes(), server.c_str()), L"");
    EXPECT_EQ(RegisteredText(HKEY_CURRENT_USER, own.c_str()), path);
    EXPECT_EQ(install(FALSE, L"user"), S_OK);
    EXPECT_EQ(RegisteredText(HKEY_CURRENT_USER, own.c_str()), L"");
}

TEST(Activation, ModuleStaysLoadedWhileAnythingOfItLives) {
    EXPECT_EQ(CanUnload(), S_OK);
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(CLSID_clsComponent, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               factory.PutVoid()),
              S_OK);
    EXPECT_EQ(CanUnload(), S_FALSE);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(CanUnload(), S_FALSE) << "locked";

    auto component = MakeComponent();
    auto point = EventsOf(component);
    ASSERT_EQ(CoGetClassObject(CLSID_clsComponent, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               factory.PutVoid()),
              S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    IUnknown* object = nullptr;
    EXPECT_EQ(factory->CreateInstance(component.Get(), IID_IUnknown, reinterpret_cast<void**>(&object)),
              CLASS_E_NOAGGREGATION);
    factory.Reset();
    component.Reset();
    EXPECT_EQ(CanUnload(), S_FALSE) << "the connection point keeps its component";
    point.Reset();
    EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace kaz::test
